#pragma once

#include <cstdint>

namespace corvanta::inline platform {

// A number that tells this machine from others.
class MachineValue {
 public:
  virtual ~MachineValue() = default;
  // Positive; the same on every call on one machine, 1 where the machine has nothing to offer.
  [[nodiscard]] virtual std::uint64_t Read() const = 0;
};

// From the system's machine identity file.
class SystemMachineValue : public MachineValue {
 public:
  [[nodiscard]] std::uint64_t Read() const override;
};

}  // namespace corvanta::inline platform
