#pragma once

#include "reports/chart/ChartData.h"
#include "reports/print/PrintTable.h"

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

// The chart as it is printed and saved, dark on white. `hasTitle`: with its name above it, where
// nothing else says it. The locale outlives the picture.
[[nodiscard]] PrintPicture ChartPicture(const ChartData& chart, const Locale& locale,
                                        bool hasTitle);

}  // namespace corvanta::inline reports
