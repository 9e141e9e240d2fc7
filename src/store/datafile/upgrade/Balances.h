#pragma once

#include <cstdint>
#include <map>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// The balance of every account by its key: the opening balance plus the rows that are no split
// lines, in a file of the present layout as well as in one whose parents list their lines.
[[nodiscard]] std::map<std::int64_t, double> AccountBalances(Connection& connection);

// True when both know the same accounts with the same balances, as far as money goes.
[[nodiscard]] bool SameBalances(const std::map<std::int64_t, double>& before,
                                const std::map<std::int64_t, double>& after);

}  // namespace corvanta::inline datafile
