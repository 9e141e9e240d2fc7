#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline safety {

// What would become of one kind of rows that are no transactions: names, schedules, prices.
struct ListChange {
  std::string what;  // as a person reads it: "Payees"
  std::size_t now = 0;
  std::size_t then = 0;
  std::size_t added = 0;    // that come back
  std::size_t removed = 0;  // that go
  std::size_t changed = 0;  // that read otherwise then

  [[nodiscard]] bool IsChange() const { return added + removed + changed > 0; }
};

// Compares what the data file in use and the one that would take its place hold beside their
// transactions, row by row. Only kinds that would change, in a fixed order. Without a file in use
// every row comes back. Both are only read. Throws StoreError.
[[nodiscard]] std::vector<ListChange> CompareLists(Connection* now, Connection& then);

}  // namespace corvanta::inline safety
