#include "reports/chart/ChartLook.h"

#include "platform/Date.h"
#include "platform/Locale.h"

#include <algorithm>
#include <array>

namespace corvanta::inline reports {
namespace {

using Colours = std::array<std::uint32_t, 7>;

// Blue, orange, green, rose, yellow, grey and sky, chosen for all kinds of eyes.
constexpr Colours kOnLight = {0x00639C, 0xD55E00, 0x118A63, 0xB04F8B, 0xC79100, 0x6B6B6B, 0x4FA6DC};
constexpr Colours kOnDark = {0x5CB8F2, 0xF08A3C, 0x35C795, 0xE69AC8, 0xF0D24A, 0xA8A8A8, 0x9CD6FF};
constexpr std::uint32_t kLineOnLight = 0x2B2B2B;
constexpr std::uint32_t kLineOnDark = 0xF0F0F0;
constexpr std::size_t kBlue = 0;
constexpr std::size_t kOrange = 1;
constexpr std::size_t kGrey = 5;

constexpr std::size_t kMaxSpoken = 30;

// The height of the bar that is made of all series.
ChartRange StackedRange(const ChartData& chart) {
  ChartRange range;
  for (std::size_t category = 0; category < chart.categories.size(); ++category) {
    double up = 0;
    double down = 0;
    for (const ChartSeries& series : chart.series) {
      const auto& point = series.points[category];
      if (point) (point->value < 0 ? down : up) += point->value;
    }
    range.low = std::min(range.low, down);
    range.high = std::max(range.high, up);
  }
  return range;
}

}  // namespace

std::uint32_t ChartColour(const ChartSeries& series, std::size_t index, bool isDark) {
  const Colours& colours = isDark ? kOnDark : kOnLight;
  if (series.isLine) return isDark ? kLineOnDark : kLineOnLight;
  switch (series.role) {
    case ChartRole::Income:
    case ChartRole::Total:
      return colours[kBlue];
    case ChartRole::Expense:
      return colours[kOrange];
    case ChartRole::Budget:
      return colours[kGrey];
    case ChartRole::Other:
      break;
  }
  return colours.at(index % colours.size());
}

ChartRange RangeOf(const ChartData& chart) {
  if (chart.kind == ChartKind::Stacked) return StackedRange(chart);
  ChartRange range;
  bool isFirst = chart.kind == ChartKind::Lines;
  for (const ChartSeries& series : chart.series) {
    for (const auto& point : series.points) {
      if (!point) continue;
      if (isFirst) range = {point->value, point->value};
      isFirst = false;
      range.low = std::min(range.low, point->value);
      range.high = std::max(range.high, point->value);
    }
  }
  return range;
}

std::string SeriesText(const ChartData& chart, std::size_t series) {
  const std::string unit = chart.currency.empty() ? "" : " (" + chart.currency + ")";
  return chart.series.at(series).name + unit;
}

std::string CategoryText(const ChartData& chart, std::size_t category, const Locale& locale) {
  const std::string& text = chart.categories.at(category);
  const auto day = chart.areDays ? Date::FromIso(text) : std::nullopt;
  return day ? locale.FormatShortDate(*day) : text;
}

std::string PointText(const ChartData& chart, std::size_t series, std::size_t category,
                      const Locale& locale) {
  const auto& point = chart.series.at(series).points.at(category);
  const std::string what = CategoryText(chart, category, locale) + ", " + chart.series[series].name;
  if (!point) return what;
  const std::string figure = locale.FormatNumber(point->figure);
  return what + ": " + figure + (chart.currency.empty() ? "" : " " + chart.currency);
}

std::string ChartText(const ChartData& chart, const Locale& locale) {
  std::string text = chart.title;
  std::size_t spoken = 0;
  for (std::size_t category = 0; category < chart.categories.size(); ++category) {
    for (std::size_t series = 0; series < chart.series.size(); ++series) {
      if (!chart.series[series].points[category]) continue;
      if (spoken++ == kMaxSpoken) return text + "; ...";
      text += "; " + PointText(chart, series, category, locale);
    }
  }
  return text;
}

}  // namespace corvanta::inline reports
