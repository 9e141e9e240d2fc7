#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// What the operations on a row need to know of it before they write.
struct RowLinks {
  std::int64_t accountId = 0;
  std::int64_t transferId = 0;     // the other half of a transfer
  std::int64_t allocatedItem = 0;  // of a split line: its parent
  std::int64_t action = 0;
  double amount = 0;
  bool transferIsNull = false;  // in rows of old files; stands for 0
};

// nullopt when there is no such row.
[[nodiscard]] std::optional<RowLinks> ReadLinks(Connection& store, std::int64_t transactionId);

// The keys that a query finds, in its first column.
[[nodiscard]] std::vector<std::int64_t> ReadKeys(Connection& store, const std::string& sql);

}  // namespace corvanta::inline ledger
