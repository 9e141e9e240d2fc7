#include "reports/chart/ChartRows.h"

#include "ledger/reference/CategoryPath.h"
#include "reports/query/ReportTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvanta::inline reports {

ChartRows::ChartRows(const ReportTable& report, std::string_view currency) : report_(report) {
  for (std::size_t row = 0; row < report.rows.size(); ++row) {
    const bool isTotal = report.rows[row].kind == ReportRowKind::Total;
    if (!isTotal && report.rows[row].currency == currency) rows_.push_back(row);
  }
}

std::optional<double> ChartRows::Number(std::size_t row, std::string_view header) const {
  const auto column = report_.Column(header);
  const auto& cells = report_.rows[row].cells;
  if (!column || *column >= cells.size()) return std::nullopt;
  const Value& value = cells[*column];
  if (value.IsNull() || value.IsText()) return std::nullopt;
  return value.Double();
}

std::string ChartRows::Text(std::size_t row, std::string_view header) const {
  const auto column = report_.Column(header);
  const auto& cells = report_.rows[row].cells;
  return column && *column < cells.size() ? cells[*column].Text() : std::string();
}

std::string ChartRows::Name(std::size_t row) const {
  const auto& cells = report_.rows[row].cells;
  return CategoryPath(cells.empty() ? std::string() : cells.front().Text(),
                      Text(row, "Sub Category"));
}

std::vector<std::string> ChartRows::MoneyHeaders() const {
  std::vector<std::string> headers;
  for (const ReportColumn& column : report_.columns) {
    if (column.content == ReportColumn::Content::Money) headers.push_back(column.header);
  }
  return headers;
}

std::vector<ChartBar> SortedAndGathered(std::vector<ChartBar> bars, std::size_t most) {
  const auto size = [](const ChartBar& bar) {
    return bar.points.empty() ? 0 : std::abs(bar.points.front().value);
  };
  std::ranges::stable_sort(bars, std::ranges::greater(), size);
  if (bars.size() <= most) return bars;
  ChartBar rest;
  rest.points.resize(bars.front().points.size());
  rest.name = "Others (" + std::to_string(bars.size() - most + 1) + ")";
  for (std::size_t i = most - 1; i < bars.size(); ++i) {
    for (std::size_t point = 0; point < rest.points.size(); ++point) {
      const ChartPoint& each = bars[i].points[point];
      rest.points[point].value += each.value;
      rest.points[point].figure += each.figure;
      if (each.row) rest.points[point].gathered.push_back(*each.row);
    }
  }
  bars.resize(most - 1);
  bars.push_back(std::move(rest));
  return bars;
}

}  // namespace corvanta::inline reports
