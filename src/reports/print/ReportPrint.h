#pragma once

#include "reports/print/PrintTable.h"

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

struct ReportTable;

// The report as it is printed, with columns as wide as what is in them: numbers and days as the
// locale writes them, amounts with the decimals of their currency.
[[nodiscard]] PrintTable PrintTableOf(const ReportTable& report, const Locale& locale);

}  // namespace corvanta::inline reports
