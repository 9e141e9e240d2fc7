#pragma once

#include <optional>
#include <string_view>

namespace corvanta {

class Locale;

// The largest amount, either sign: beyond it a number does not hold every cent.
inline constexpr double kLargestAmount = 9'999'999'999'999.99;

// What an amount comes to that may be typed as a sum: numbers as the locale reads them, + - * / and
// brackets, with * and / before + and -. A plain number is returned as it is, an expression's
// result as the locale rounds amounts. nullopt when the text is neither, or divides by zero.
[[nodiscard]] std::optional<double> WorkOut(std::string_view text, const Locale& locale);

}  // namespace corvanta
