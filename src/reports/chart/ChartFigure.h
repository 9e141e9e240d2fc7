// Which figures of a report a point of its chart stands for.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline reports {

struct ChartData;

struct ChartFigure {
  std::vector<std::size_t> rows;  // of the report; several for what is gathered
  std::string header;             // of the column
  std::string name;               // what the point is of, as the chart says it
};

// nullopt where there is no point.
[[nodiscard]] std::optional<ChartFigure> FigureAt(const ChartData& chart, std::size_t series,
                                                  std::size_t category);

}  // namespace corvanta::inline reports
