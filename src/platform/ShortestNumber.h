#pragma once

#include <string>

namespace corvanta::inline platform {

// The shortest text with a point that reads back as the same number: "500", "-45.46", "1e+21".
// Plain digits between a millionth and 10^21, an exponent beyond; zero is "0" whatever its sign.
// Empty for infinity and NaN, which no file can hold.
[[nodiscard]] std::string ShortestNumber(double number);

}  // namespace corvanta::inline platform
