#pragma once

#include <cstdint>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// The transactions of a data file with their split lines, as they are counted before something that
// may remove some of them. What is added behind `last` does not count afterwards.
struct RowCount {
  std::int64_t rows = 0;
  std::int64_t last = 0;  // key
};

// Throw StoreError.
[[nodiscard]] RowCount CountRows(Connection& store);
// How many of them are left.
[[nodiscard]] std::int64_t CountLeft(Connection& store, const RowCount& before);

}  // namespace corvanta::inline ledger
