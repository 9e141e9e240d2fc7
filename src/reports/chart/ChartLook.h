// What charts look like and say, on the screen and on paper.
#pragma once

#include "reports/chart/ChartData.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

// 0xRRGGBB. The colours of one chart differ in how light they are as well as in hue, so that they
// are told apart by those who see fewer of them; `isDark` for a dark background.
[[nodiscard]] std::uint32_t ChartColour(const ChartSeries& series, std::size_t index, bool isDark);

// The lowest and the highest value that the chart has to reach; bars begin at 0.
struct ChartRange {
  double low = 0;
  double high = 0;
};
[[nodiscard]] ChartRange RangeOf(const ChartData& chart);

// A category as its axis says it.
[[nodiscard]] std::string CategoryText(const ChartData& chart, std::size_t category,
                                       const Locale& locale);
// A point in words: "Baker, Expense: -12.50 EUR".
[[nodiscard]] std::string PointText(const ChartData& chart, std::size_t series,
                                    std::size_t category, const Locale& locale);
// The whole chart in words, for who cannot see it; of a long one its beginning.
[[nodiscard]] std::string ChartText(const ChartData& chart, const Locale& locale);

}  // namespace corvanta::inline reports
