#pragma once

#include <optional>
#include <string_view>

namespace corvanta::inline platform {

class Locale;

// The largest amount, either sign: beyond it a number does not hold every cent.
inline constexpr double kLargestAmount = 9'999'999'999'999.99;

// What an amount comes to that may be typed as a sum: numbers as the locale reads them, + - * / and
// brackets, with * and / before + and -. A number that the locale does not read is taken as it is
// read in a file, where it shows by itself what it means: "12,50" has a decimal comma everywhere. A
// plain number is returned as it is, an expression's result rounded to `decimals` (below 0: the
// locale's). nullopt when the text is neither, or divides by zero.
[[nodiscard]] std::optional<double> WorkOut(std::string_view text, const Locale& locale,
                                            int decimals = -1);

}  // namespace corvanta::inline platform
