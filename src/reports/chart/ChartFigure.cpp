#include "reports/chart/ChartFigure.h"

#include "reports/chart/ChartData.h"

namespace corvanta::inline reports {

std::optional<ChartFigure> FigureAt(const ChartData& chart, std::size_t series,
                                    std::size_t category) {
  if (series >= chart.series.size()) return std::nullopt;
  const ChartSeries& of = chart.series[series];
  if (category >= of.points.size() || !of.points[category]) return std::nullopt;
  const ChartPoint& point = *of.points[category];
  ChartFigure figure{point.gathered, of.header, chart.categories[category]};
  if (point.row) figure.rows = {*point.row};
  // Where the columns of the report stand along the axis, its rows are the series.
  if (!chart.headers.empty()) {
    figure.header = chart.headers[category];
    figure.name = of.name;
  }
  if (figure.rows.empty() || figure.header.empty()) return std::nullopt;
  return figure;
}

}  // namespace corvanta::inline reports
