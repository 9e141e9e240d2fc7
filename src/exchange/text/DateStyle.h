// How a file writes its dates.
#pragma once

#include "platform/Date.h"
#include "platform/Locale.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace corvanta::inline exchange {

// Whether a value may stand in another order than the file's where it tells so itself (a year of
// four digits in front).
enum class DateTolerance { AnyProven, OrderOnly };

// The day that a text names in that order of day, month and year. Years of two digits are 1970 to
// 2069, also behind an apostrophe (3/29' 0); parts are separated by anything that is no digit, or
// stand together as six or eight digits; a month may be a name in English or in the user's
// language. A full stop or a word for the year behind the date ("13.2.2020 г.") and a time of day
// are left out. nullopt for anything else and for days that there are not.
[[nodiscard]] std::optional<Date> ReadFileDate(std::string_view text, DateOrder order,
                                               const Locale& locale,
                                               DateTolerance tolerance = DateTolerance::AnyProven);

// True for a text that is a date in one order at least.
[[nodiscard]] bool IsDateText(std::string_view text, const Locale& locale);
// Whether the text is written as a date, even of a day that there is not, such as 31 February.
[[nodiscard]] bool IsDateShape(std::string_view text, const Locale& locale);

// Finds the one order of a file from all its dates.
class DateOrderFinder {
 public:
  void Add(std::string_view text);
  // The order in which most dates make sense; where several do, the locale's if it is among them.
  [[nodiscard]] DateOrder Find(const Locale& locale) const;

 private:
  std::array<std::size_t, 3> votes_{};
};

}  // namespace corvanta::inline exchange
