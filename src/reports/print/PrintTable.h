#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace corvanta::inline reports {

class PrintSurface;

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

// A part of the printable area, in millimetres.
struct PrintArea {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

// Draws something that is no list into that part.
using PrintPicture = std::function<void(PrintSurface& surface, const PrintArea& area)>;

// A line below the rows: what they are on the left ("14 transactions"), what they come to on the
// right ("Balance: 614.49").
struct PrintSummary {
  std::string left;
  std::string right;
};

// A list as it is printed: its columns from left to right and its rows from top to bottom.
struct PrintTable {
  std::string title = "Corvanta Printout";
  std::string subject = {};  // below the title: which days and rows these are; empty for nothing
  std::vector<PrintColumn> columns;
  // A row may have fewer cells than there are columns; the others are empty.
  std::vector<std::vector<std::string>> rows;
  PrintFont font;
  PrintOrientation orientation = PrintOrientation::Portrait;
  std::set<std::size_t> totals = {};         // the rows that stand for others, from 0
  std::vector<PrintSummary> summaries = {};  // below the last row
  PrintPicture picture = {};                 // on a page of its own before the rows
};

}  // namespace corvanta::inline reports
