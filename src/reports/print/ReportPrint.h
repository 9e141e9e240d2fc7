#pragma once

#include "ledger/register/Period.h"
#include "reports/print/PrintTable.h"

#include <string>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

struct ReportTable;

// What a report is of, in the words that stand above its rows. Its days, of a comparison both.
[[nodiscard]] std::string DaysText(const std::vector<Period>& periods, const Locale& locale);
// At which rates its amounts were converted; empty for none.
[[nodiscard]] std::string RatesText(const ReportTable& report, const Locale& locale);
// Between what stands in one line.
inline constexpr const char* kBetweenDetails = "  ·  ";

// The report as it is printed, with columns as wide as what is in them: numbers and days as the
// locale writes them, amounts with the decimals of their currency.
[[nodiscard]] PrintTable PrintTableOf(const ReportTable& report, const Locale& locale);

}  // namespace corvanta::inline reports
