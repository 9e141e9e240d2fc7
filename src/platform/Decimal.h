#pragma once

#include <string>

namespace corvanta::inline platform {

// A decimal number as its digits.
struct Decimal {
  bool isNegative = false;  // never of a zero
  std::string whole;        // at least one digit
  std::string fraction;     // exactly the decimals asked for
};

// The value rounded half away from zero, on the shortest decimal text that reads back as the
// value: 1.005 becomes 1.01 although the double lies a little below. `value` is finite, `decimals`
// 0 or more.
[[nodiscard]] Decimal RoundToDecimals(double value, int decimals);
// The same as a number; what is not finite stays.
[[nodiscard]] double Rounded(double value, int decimals);
// With how many decimals, from `least` to `most`, the value is written without losing any.
[[nodiscard]] int NeededDecimals(double value, int least, int most);

}  // namespace corvanta::inline platform
