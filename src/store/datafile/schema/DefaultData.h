// The rows that every new data file has.
#pragma once

#include <string>
#include <vector>

namespace corvanta::inline datafile {

// Periods, currencies and quote sources, one INSERT per row. The order fixes the keys.
[[nodiscard]] std::vector<std::string> FixedRowStatements();
// Clears the reference tables and fills account groups, banks, categories and the payment type of
// imports, one statement per table or row. The order fixes the keys.
[[nodiscard]] std::vector<std::string> ReferenceRowStatements();

[[nodiscard]] std::vector<std::string> CurrencyStatements();
[[nodiscard]] std::vector<std::string> CategoryStatements();

}  // namespace corvanta::inline datafile
