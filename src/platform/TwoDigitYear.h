#pragma once

namespace corvanta::inline platform {

// The year that a number of one or two digits stands for in a date: 1970 to 2069.
[[nodiscard]] constexpr int YearOfTwoDigits(int number) {
  constexpr int kFirstOfLastCentury = 70;
  return number < kFirstOfLastCentury ? 2000 + number : 1900 + number;
}

}  // namespace corvanta::inline platform
