#pragma once

#include "reports/chart/ChartData.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

// The rows of a report that its chart is drawn from: those in one currency that are no totals.
class ChartRows {
 public:
  ChartRows(const ReportTable& report, std::string_view currency);

  [[nodiscard]] const std::vector<std::size_t>& Rows() const { return rows_; }
  // The number in the column of that header; nullopt where there is none.
  [[nodiscard]] std::optional<double> Number(std::size_t row, std::string_view header) const;
  [[nodiscard]] std::string Text(std::size_t row, std::string_view header) const;
  // Category with its sub-category, or the first column's text.
  [[nodiscard]] std::string Name(std::size_t row) const;
  // The headers of the columns with amounts, from left to right.
  [[nodiscard]] std::vector<std::string> MoneyHeaders() const;

 private:
  const ReportTable& report_;
  std::vector<std::size_t> rows_;
};

// One thing of a list, with a point in each of some series.
struct ChartBar {
  std::string name;
  std::vector<ChartPoint> points;
};

// Those with the largest first points first; where there are more than `most`, the smallest are
// gathered in one at the end, which says how many they are.
[[nodiscard]] std::vector<ChartBar> SortedAndGathered(std::vector<ChartBar> bars, std::size_t most);

}  // namespace corvanta::inline reports
