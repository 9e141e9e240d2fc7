// The numbers and words that a date is written with, before anybody knows which is which.
#pragma once

#include "platform/Locale.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace corvanta::inline exchange {

inline constexpr std::size_t kYearDigits = 4;  // of a year written whole

struct DatePart {
  int number = 0;
  std::size_t digits = 0;
  std::string_view word;  // of a month's name; without digits then
};

struct DateParts {
  std::array<DatePart, 3> part;
  std::size_t count = 0;
  bool apostrophe = false;  // before the last part
  bool isWhole = false;     // nothing but a time of day stands behind it

  [[nodiscard]] bool HasWord() const;
  // Six or eight digits that stand together.
  [[nodiscard]] bool IsRun() const;
};

// The text with plain blanks and digits, and without marks for the direction of writing.
[[nodiscard]] std::string PlainDate(std::string_view text);
// The parts of a plain text, into which they point. None where a number is too long for a date, or
// two words stand there that could name a month.
[[nodiscard]] DateParts SplitDate(std::string_view plain);
// The three parts of a run, as that order has them.
[[nodiscard]] DateParts PartRun(const DatePart& run, DateOrder order);

// ASCII digits.
[[nodiscard]] bool IsDateDigit(char c);
// Letters of any language: what is not ASCII is taken for one.
[[nodiscard]] bool IsDateLetter(char c);
// What the text begins with of such signs.
[[nodiscard]] std::string_view RunOf(std::string_view text, bool (*belongs)(char));

}  // namespace corvanta::inline exchange
