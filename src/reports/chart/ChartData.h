// What the chart of a report shows.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

struct ReportTable;

enum class ChartKind {
  Columns,  // upright bars side by side, such as of months
  Stacked,  // upright bars, the parts of each on top of one another
  Bars,     // bars from left to right, the largest first
  Lines
};

enum class ChartRole { Income, Expense, Total, Budget, Other };

struct ChartPoint {
  double value = 0;   // how far it reaches: money spent goes up, too
  double figure = 0;  // what the report says, with its sign
  // Of the report, where the point leads; nullopt for several of them gathered.
  std::optional<std::size_t> row;
  std::vector<std::size_t> gathered = {};  // those rows
};

struct ChartSeries {
  std::string name;
  std::string header = {};  // of the report's column that its figures stand in
  ChartRole role = ChartRole::Other;
  bool isLine = false;  // over the bars of the others
  // One to each category; nullopt where there is nothing.
  std::vector<std::optional<ChartPoint>> points;
};

struct ChartData {
  ChartKind kind = ChartKind::Columns;
  std::string title;
  std::string currency;  // code of the amounts; empty where the report has none
  // Along the axis; days as ISO dates where `areDays`.
  std::vector<std::string> categories;
  bool areDays = false;
  // Where each category is a column of the report: the headers of those.
  std::vector<std::string> headers = {};
  std::vector<ChartSeries> series;

  [[nodiscard]] bool IsEmpty() const { return categories.empty() || series.empty(); }
};

// Bars that lie below each other: more would be too many to read.
inline constexpr std::size_t kMaxBars = 12;

// The currencies that amounts of the report are in, that of the most rows first.
[[nodiscard]] std::vector<std::string> ChartCurrencies(const ReportTable& report);

// The chart that fits the report, of the amounts in that currency: amounts of several cannot stand
// on one axis. Small ones of a long list are gathered in the last bar, so that
// there are no more than `mostBars`. Without rows, or for a report without a chart, an empty one.
[[nodiscard]] ChartData BuildChart(const ReportTable& report, std::string_view currency,
                                   std::size_t mostBars = kMaxBars);
// Of the first currency that has something to draw: nothing may have been spent in one of them.
[[nodiscard]] ChartData BuildChart(const ReportTable& report);
// The same, where `own` (a code) comes before the others.
[[nodiscard]] ChartData BuildOwnChart(const ReportTable& report, std::string_view own);

}  // namespace corvanta::inline reports
