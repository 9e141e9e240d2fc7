#pragma once

#include <vector>

namespace corvanta {

// How much room the column of a list asks for.
struct ColumnNeed {
  int width = 0;     // as wide as it likes to be, in pixels
  int stretch = 0;   // share of what is over
  int smallest = 0;  // gives way down to this; 0: not at all
  int leaves = 0;  // where there is no room the column of the lowest one is hidden first; 0: never
  bool isLast = false;    // gives way only where no other column is left to do so
  bool isByHand = false;  // the person has set the width: others take what is over, and give first
};

// The widths that fill the room, 0 for a column that is hidden: what is over goes to those that
// stretch. Where there is too little, columns first give way, then leave one after the other; then
// those set by hand give way, and those that hold figures last. The sum is larger than the room
// where that is not enough.
[[nodiscard]] std::vector<int> FitColumns(const std::vector<ColumnNeed>& columns, int room);

}  // namespace corvanta
