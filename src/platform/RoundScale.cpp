#include "platform/RoundScale.h"

#include <algorithm>
#include <cmath>

namespace corvanta::inline platform {

double RoundStep(double distance, int steps) {
  const double exact = distance / steps;
  const double power = std::pow(10, std::floor(std::log10(exact)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (exact <= factor * power) return factor * power;
  }
  return 10 * power;
}

std::vector<double> RoundScale::Marks() const {
  std::vector<double> marks;
  // Counted, as adding up a fraction would drift.
  const double first = std::round(low / step);
  for (int i = 0; (first + i) * step <= high + step / 1000; ++i) {
    marks.push_back((first + i) * step);
  }
  return marks;
}

RoundScale ScaleOf(double low, double high, int steps) {
  if (!(high > low)) {
    const double room = std::max(1.0, std::abs(high) / 10);
    low -= room;
    high += room;
  }
  RoundScale scale;
  scale.step = RoundStep(high - low, steps);
  scale.low = std::floor(low / scale.step) * scale.step;
  scale.high = std::ceil(high / scale.step) * scale.step;
  scale.decimals = std::max(0, static_cast<int>(-std::floor(std::log10(scale.step))));
  return scale;
}

}  // namespace corvanta::inline platform
