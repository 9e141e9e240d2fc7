#pragma once

#include <string>
#include <vector>

namespace corvanta::inline reports {

enum class PrintAlignment { Left, Right, Centre };
enum class PrintOrientation { Portrait, Landscape };

struct PrintColumn {
  std::string header;
  int width = 0;  // on the screen, in pixels; 0 for a hidden column
  PrintAlignment alignment = PrintAlignment::Left;
};

struct PrintFont {
  std::string name;  // empty for the system's own
  double size = 9;   // in points
  bool isBold = false;
  bool isItalic = false;
  bool isUnderlined = false;
  bool isStruckOut = false;
};

// A list as it is printed: its columns from left to right and its rows from top to bottom.
struct PrintTable {
  std::string title = "Corvanta Printout";
  std::vector<PrintColumn> columns;
  // A row may have fewer cells than there are columns; the others are empty.
  std::vector<std::vector<std::string>> rows;
  PrintFont font;
  PrintOrientation orientation = PrintOrientation::Portrait;
};

}  // namespace corvanta::inline reports
