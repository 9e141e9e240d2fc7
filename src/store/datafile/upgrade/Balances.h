#pragma once

#include <cstdint>
#include <map>

namespace corvanta::inline platform {
class Clock;
}

namespace corvanta::inline sql {
class Connection;
struct DataSource;
}  // namespace corvanta::inline sql

namespace corvanta::inline datafile {

// The balance of every account by its key: the opening balance plus the rows that are no split
// lines, in a file of the present layout as well as in one whose parents list their lines.
[[nodiscard]] std::map<std::int64_t, double> AccountBalances(Connection& connection);

// The same of a file that may be open elsewhere, after every page of it was read: damage that nobody
// has come across yet must not be carried into a copy. Throws StoreError.
[[nodiscard]] std::map<std::int64_t, double> VerifiedBalances(const DataSource& source,
                                                              const Clock& clock);

// True when both know the same accounts with the same balances, as far as money goes.
[[nodiscard]] bool SameBalances(const std::map<std::int64_t, double>& before,
                                const std::map<std::int64_t, double>& after);

}  // namespace corvanta::inline datafile
