// Reports and lists as tables of a spreadsheet.
#pragma once

#include "platform/Spreadsheet.h"

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

struct PrintTable;
struct ReportTable;

// The report with numbers, days and amounts as such, amounts with the decimals of their currency.
// A total that is exactly the sum of rows above it becomes one.
[[nodiscard]] SpreadsheetTable SheetOf(const ReportTable& report);
// A list as it stands on the screen: what the locale reads as a number in a column of numbers, or
// as a day in a column of days, becomes one. The columns that are hidden are left out.
[[nodiscard]] SpreadsheetTable SheetOf(const PrintTable& list, const Locale& locale);

}  // namespace corvanta::inline reports
