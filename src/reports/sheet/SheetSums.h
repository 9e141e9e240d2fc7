#pragma once

#include "platform/Spreadsheet.h"

#include <cstddef>
#include <optional>

namespace corvanta::inline reports {

// Turns the numbers of total rows into sums over rows above them, wherever that gives exactly the
// number that stands there: of the rows since the last total, of all rows, or of those with the
// total's own text in the column of currencies. Any other number stays as it is.
void AddSums(SpreadsheetTable& table, std::optional<std::size_t> currencyColumn,
             const std::vector<std::string>& currencies);

}  // namespace corvanta::inline reports
