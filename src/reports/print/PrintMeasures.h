// What the layout of a printed list and its drawing share; in millimetres.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace corvanta::inline reports {

// What a cell leaves free of its column, half of it on either side.
inline constexpr double kGutter = 2;
inline constexpr double kRowPadding = 0.7;   // above and below the lines of a row
inline constexpr double kTitleSpace = 0.8;   // below the title
inline constexpr double kHeadingSpace = 3;   // between the heading and the heads of the columns
inline constexpr double kHeaderPadding = 1;  // below the heads of the columns
inline constexpr double kRule = 0.35;

// The lines that a row needs for its tallest cell.
[[nodiscard]] inline std::size_t MostLines(const std::vector<std::vector<std::string>>& cells) {
  std::size_t most = 1;
  for (const auto& lines : cells) most = std::max(most, lines.size());
  return most;
}

}  // namespace corvanta::inline reports
