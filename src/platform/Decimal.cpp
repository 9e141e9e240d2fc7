#include "platform/Decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace corvanta::inline platform {
namespace {

// All digits of the value without a point; `pointAt` is the number of them before it, which may
// lie outside the text.
std::string ShortestDigits(double value, int& pointAt) {
  std::array<char, 64> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::scientific)
                       .ptr;
  const std::string text(buffer.data(), end);
  const std::size_t mark = text.find('e');
  pointAt = std::stoi(text.substr(mark + 1)) + 1;
  std::string digits = text.substr(0, 1);
  if (mark > 2) digits += text.substr(2, mark - 2);
  return digits;
}

void AddOne(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
}

}  // namespace

Decimal RoundToDecimals(double value, int decimals) {
  int pointAt = 0;
  std::string digits = ShortestDigits(std::fabs(value), pointAt);
  // From here on the point stands inside the text, with at least one digit before it.
  if (pointAt < 1) {
    digits.insert(0, static_cast<std::size_t>(1 - pointAt), '0');
    pointAt = 1;
  }
  const auto kept = static_cast<std::size_t>(pointAt + decimals);
  const bool roundUp = digits.size() > kept && digits[kept] >= '5';
  digits.resize(kept, '0');
  if (roundUp) AddOne(digits);
  Decimal result;
  const std::size_t whole = digits.size() - static_cast<std::size_t>(decimals);
  result.whole = digits.substr(0, whole);
  result.fraction = digits.substr(whole);
  result.isNegative = std::signbit(value) && digits.find_first_not_of('0') != std::string::npos;
  return result;
}

double Rounded(double value, int decimals) {
  if (!std::isfinite(value)) return value;
  const Decimal decimal = RoundToDecimals(value, decimals);
  const std::string text = decimal.whole + "." + decimal.fraction;
  double rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return decimal.isNegative ? -rounded : rounded;
}

int NeededDecimals(double value, int least, int most) {
  for (int decimals = least; decimals < most; ++decimals) {
    const double scaled = value * std::pow(10.0, decimals);
    if (std::abs(scaled - std::round(scaled)) < 1e-6 * std::max(1.0, std::abs(scaled))) {
      return decimals;
    }
  }
  return std::max(least, most);
}

}  // namespace corvanta::inline platform
