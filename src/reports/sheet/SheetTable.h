// Reports and lists as tables of a spreadsheet.
#pragma once

#include "platform/Spreadsheet.h"

#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

struct PrintSummary;
struct PrintTable;
struct ReportTable;

// The report with numbers, days and amounts as such, amounts with the decimals of their currency.
// A total that is exactly the sum of rows above it becomes one.
[[nodiscard]] SpreadsheetTable SheetOf(const ReportTable& report);
// A list as it stands on the screen: what the locale reads as a number in a column of numbers, or
// as a day in a column of days, becomes one. The columns that are hidden are left out. What stands
// below the list follows its rows, as totals.
[[nodiscard]] SpreadsheetTable SheetOf(const PrintTable& list, const Locale& locale);

// Puts what stands below a list behind its rows, as totals: a figure ("Balance: 614.49") with its
// name in the first column and its number in the column of that name, or else in the last one of
// amounts. No such row has a day, so that none is taken for a transaction.
void AddSummaries(SpreadsheetTable& table, const std::vector<PrintSummary>& summaries,
                  const Locale& locale);

}  // namespace corvanta::inline reports
