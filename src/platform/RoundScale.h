// Axes whose marks a person can count with.
#pragma once

#include <vector>

namespace corvanta::inline platform {

// The distance of about `steps` round numbers over that distance, which is more than 0: 1, 2 or 5
// times a power of ten.
[[nodiscard]] double RoundStep(double distance, int steps);

struct RoundScale {
  double low = 0;
  double high = 1;
  double step = 1;
  int decimals = 0;  // that its marks need

  // From the lowest to the highest, all of them multiples of the step.
  [[nodiscard]] std::vector<double> Marks() const;
};

// A scale that begins and ends at a mark and holds both, with about so many steps. Where there is
// nothing between them, room is made on either side.
[[nodiscard]] RoundScale ScaleOf(double low, double high, int steps);

}  // namespace corvanta::inline platform
