#include "platform/NumberText.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <charconv>
#include <cstdint>
#include <string>

namespace corvanta::inline platform {
namespace {

UChar32 FirstCharacter(std::string_view text) {
  return text.empty() ? 0
                      : icu::UnicodeString::fromUTF8(
                            icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
                            .char32At(0);
}

bool IsMinus(UChar32 c) {
  return c == '-' || c == 0x2212 || c == 0x2013 || c == 0xFF0D;
}
bool IsBlank(UChar32 c) {
  return u_isUWhiteSpace(c) != 0;
}
bool IsApostrophe(UChar32 c) {
  return c == '\'' || c == 0x2019;
}
// Marks for the direction of writing, which come along when a number is pasted.
bool IsDirectionMark(UChar32 c) {
  return c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x2066 && c <= 0x2069);
}

// Collects digits and checks that grouping separators stand between whole groups.
class DigitCollector {
 public:
  void AddDigit(int digit) {
    text_ += static_cast<char>('0' + digit);
    hasDigits_ = true;
    ++run_;
  }
  bool AddGroup() {
    if (hasPoint_ || run_ == 0 || (grouped_ ? run_ != 2 && run_ != 3 : run_ > 3)) return false;
    grouped_ = true;
    run_ = 0;
    return true;
  }
  bool AddPoint() {
    if (hasPoint_ || !LastGroupIsWhole()) return false;
    text_ += hasDigits_ ? "." : "0.";
    hasPoint_ = true;
    return true;
  }
  [[nodiscard]] std::optional<double> Value() const {
    if (!hasDigits_ || (!hasPoint_ && !LastGroupIsWhole())) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), value);
    if (error != std::errc()) return std::nullopt;
    return value;
  }

 private:
  [[nodiscard]] bool LastGroupIsWhole() const { return !grouped_ || run_ == 3; }

  std::string text_;
  bool hasDigits_ = false;
  bool hasPoint_ = false;
  bool grouped_ = false;
  int run_ = 0;  // digits since the last grouping separator
};

// Takes blanks, signs, brackets and a currency sign off both ends. False when they make no sense.
bool TakeSign(icu::UnicodeString& text, bool& isNegative) {
  int signs = 0;
  int opened = 0;
  int closed = 0;
  int currencies = 0;
  const auto takes = [&](UChar32 c, bool atStart) {
    if (IsMinus(c) || c == '+') {
      isNegative = IsMinus(c);
      return ++signs > 0;
    }
    if (c == (atStart ? '(' : ')')) return ++(atStart ? opened : closed) > 0;
    if (u_charType(c) == U_CURRENCY_SYMBOL) return ++currencies > 0;
    return IsBlank(c);
  };
  while (!text.isEmpty() && takes(text.char32At(0), true)) {
    text.remove(0, text.moveIndex32(0, 1));
  }
  while (!text.isEmpty() && takes(text.char32At(text.length() - 1), false)) {
    text.truncate(text.moveIndex32(text.length(), -1));
  }
  if (opened == 1) isNegative = true;
  return signs + opened <= 1 && opened == closed && currencies <= 1;
}

}  // namespace

std::optional<double> ReadNumber(std::string_view text, std::string_view decimal,
                                 std::string_view group) {
  icu::UnicodeString characters = icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
  for (std::int32_t i = characters.length(); i-- > 0;) {
    if (IsDirectionMark(characters.charAt(i))) characters.remove(i, 1);
  }
  bool isNegative = false;
  if (!TakeSign(characters, isNegative)) return std::nullopt;
  const UChar32 decimalSign = FirstCharacter(decimal);
  const UChar32 groupSign = FirstCharacter(group);
  DigitCollector digits;
  for (std::int32_t i = 0; i < characters.length(); i = characters.moveIndex32(i, 1)) {
    const UChar32 c = characters.char32At(i);
    const int digit = u_charDigitValue(c);
    bool isUnderstood = true;
    if (digit >= 0) {
      digits.AddDigit(digit);
    } else if (c == decimalSign || ((c == '.' || c == ',') && c != groupSign)) {
      isUnderstood = digits.AddPoint();
    } else if (c == groupSign || IsBlank(c) || IsApostrophe(c)) {
      isUnderstood = digits.AddGroup();
    } else {
      isUnderstood = false;
    }
    if (!isUnderstood) return std::nullopt;
  }
  const auto value = digits.Value();
  if (!value || *value == 0.0) return value;
  return isNegative ? -*value : *value;
}

}  // namespace corvanta::inline platform
