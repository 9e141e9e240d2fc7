#pragma once

#include <vector>

namespace corvanta::inline controls {

// How much room the column of a list asks for.
struct ColumnNeed {
  int width = 0;     // as wide as it likes to be, in pixels
  int stretch = 0;   // share of what is over
  int smallest = 0;  // gives way down to this; 0: not at all
  // Where there is no room the columns of the lowest one are hidden first, together; 0: never.
  int leaves = 0;
  bool isLast = false;    // gives way, and leaves, only where no other column is left to do so
  bool isByHand = false;  // the person has set the width: others take what is over, and give first
  // Where only the figures could give way still it gives way with them, down to this; 0: no more.
  int least = 0;
};

// The widths that fill the room, 0 for a column that is hidden: what is over goes to those that
// stretch, and very much to all. Where there is too little, columns first give way, then leave one
// after the other; then those set by hand give way, and those that hold figures last, which also
// leave last. The sum is larger than the room where that is not enough; then what has a `least`
// keeps a third of the room as far as it needs it.
[[nodiscard]] std::vector<int> FitColumns(const std::vector<ColumnNeed>& columns, int room);

}  // namespace corvanta::inline controls
