#include "platform/ArithmeticText.h"

#include "platform/Decimal.h"
#include "platform/Locale.h"
#include "platform/NumberStyle.h"
#include "platform/TextCase.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>

namespace corvanta::inline platform {
namespace {

// Brackets and signs may stand in each other; what a person types never comes near it.
constexpr int kDeepest = 50;

// The operators that other programs write, as their keys.
std::string WithPlainOperators(std::string_view text) {
  static constexpr std::array<std::pair<std::string_view, char>, 4> kSigns{
      {{"\u2212", '-'}, {"\u00D7", '*'}, {"\u00F7", '/'}, {"\u2044", '/'}}};
  std::string plain(text);
  for (const auto& [sign, key] : kSigns) {
    for (auto at = plain.find(sign); at != std::string::npos; at = plain.find(sign, at)) {
      plain.replace(at, sign.size(), 1, key);
    }
  }
  return plain;
}

std::optional<double> ReadNumberText(std::string_view text, const Locale& locale) {
  if (const auto number = locale.ParseNumber(text)) return number;
  return ReadFileNumber(text, MarkOf(locale));
}

// sum = product { (+|-) product }, product = factor { (*|/) factor },
// factor = (+|-) factor | ( sum ) | number
class Reader {
 public:
  Reader(std::string_view text, const Locale& locale) : rest_(text), locale_(locale) {}

  std::optional<double> Read() {
    const auto value = Sum();
    return Next() == '\0' ? value : std::nullopt;
  }

 private:
  char Next() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
    return rest_.empty() ? '\0' : rest_.front();
  }
  bool Take(char sign) {
    if (Next() != sign) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::optional<double> Sum() {
    auto value = Product();
    while (value && (Next() == '+' || Next() == '-')) {
      const double sign = Take('+') ? 1 : (Take('-'), -1);
      const auto next = Product();
      value = next ? std::optional(*value + sign * *next) : std::nullopt;
    }
    return value;
  }

  std::optional<double> Product() {
    auto value = Factor();
    while (value && (Next() == '*' || Next() == '/')) {
      const bool divides = Take('/') || !Take('*');
      const auto next = Factor();
      if (!next || (divides && *next == 0)) return std::nullopt;
      value = divides ? *value / *next : *value * *next;
    }
    return value;
  }

  std::optional<double> Factor() {
    if (++depth_ > kDeepest) return std::nullopt;
    const auto value = Signed();
    --depth_;
    return value;
  }

  std::optional<double> Signed() {
    if (Take('+')) return Factor();
    if (Take('-')) {
      const auto value = Factor();
      return value ? std::optional(-*value) : std::nullopt;
    }
    if (!Take('(')) return Number();
    const auto value = Sum();
    return Take(')') ? value : std::nullopt;
  }

  std::optional<double> Number() {
    const auto number = rest_.substr(0, rest_.find_first_of("+-*/()"));
    rest_.remove_prefix(number.size());
    return ReadNumberText(Trim(number), locale_);
  }

  std::string_view rest_;
  const Locale& locale_;
  int depth_ = 0;
};

}  // namespace

std::optional<double> WorkOut(std::string_view text, const Locale& locale, int decimals) {
  if (const auto number = ReadNumberText(text, locale)) return number;
  const auto value = Reader(WithPlainOperators(text), locale).Read();
  if (!value || !std::isfinite(*value)) return std::nullopt;
  return Rounded(*value, decimals < 0 ? locale.DefaultDecimals() : decimals);
}

}  // namespace corvanta::inline platform
