#include "platform/ShortestNumber.h"

#include <array>
#include <charconv>
#include <cmath>

namespace corvanta::inline platform {
namespace {

constexpr double kSmallestPlain = 1e-6;
constexpr double kLargestPlain = 1e21;

}  // namespace

std::string ShortestNumber(double number) {
  if (!std::isfinite(number)) return {};
  if (number == 0) return "0";
  const double size = std::abs(number);
  const bool plain = size >= kSmallestPlain && size < kLargestPlain;
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                 plain ? std::chars_format::fixed : std::chars_format::scientific);
  return {text.data(), end.ptr};
}

}  // namespace corvanta::inline platform
