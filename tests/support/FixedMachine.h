#pragma once

#include "platform/Machine.h"

namespace corvanta {

// A machine whose number the test knows and can change.
class FixedMachine : public MachineValue {
 public:
  explicit FixedMachine(std::uint64_t value = 123456789) : value_(value) {}
  [[nodiscard]] std::uint64_t Read() const override { return value_; }
  void Set(std::uint64_t value) { value_ = value; }

 private:
  std::uint64_t value_;
};

}  // namespace corvanta
