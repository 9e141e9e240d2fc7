#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>
#include <vector>

namespace corvanta::inline ledger {

class RegisterRows;

// The rows of a register by their transactions, for whoever looks up all of them.
class RowFinder {
 public:
  // Of the rows whose entries are read.
  explicit RowFinder(const RegisterRows& rows);

  [[nodiscard]] std::optional<std::size_t> Find(std::int64_t key) const;

 private:
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
  std::vector<std::uint32_t> dense_;  // by key, where the keys lie close
  std::unordered_map<std::int64_t, std::size_t> sparse_;
};

}  // namespace corvanta::inline ledger
