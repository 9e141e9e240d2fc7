#pragma once

#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta {

// What is inconsistent in an open data file, one text each: transfers whose halves do not name
// each other or have the same sign, splits that do not add up or have no parent, occurrences of a
// schedule that are posted twice, keys of rows that are not there. Empty when all is well. Dates
// are not looked at: the sample data's split lines carry their own.
[[nodiscard]] std::vector<std::string> LedgerProblems(Connection& connection);

}  // namespace corvanta
