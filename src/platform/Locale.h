#pragma once

#include "platform/Date.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

// How this user writes numbers and dates. Everything a person sees or types goes through it;
// files and SQL never do.
class Locale {
 public:
  virtual ~Locale() = default;

  // The locale's decimal and grouping separators as UTF-8 (one character each; grouping may be
  // a no-break space).
  [[nodiscard]] virtual std::string DecimalSeparator() const = 0;
  [[nodiscard]] virtual std::string GroupSeparator() const = 0;
  // The number of decimals that numbers are shown with: two, or those of the locale's own currency
  // where it has more. What an amount is stored with is a matter of its account's currency.
  [[nodiscard]] virtual int DefaultDecimals() const = 0;
  // ISO 4217 code of the user's currency, such as "EUR"; empty when the locale names none.
  [[nodiscard]] virtual std::string CurrencyCode() const = 0;
  [[nodiscard]] virtual DateOrder ShortDateOrder() const = 0;

  // Grouped digits with a leading zero, rounded half away from zero, ASCII minus, Latin digits;
  // never "-0.00". decimals < 0 takes DefaultDecimals().
  [[nodiscard]] virtual std::string FormatNumber(double value, int decimals = -1) const = 0;
  // A number as a person types it: the locale's separators, blanks, a sign, brackets for negative.
  // nullopt when it is no number.
  [[nodiscard]] virtual std::optional<double> ParseNumber(std::string_view text) const = 0;
  [[nodiscard]] virtual std::string FormatShortDate(Date date) const = 0;
  [[nodiscard]] virtual std::string FormatLongDate(Date date) const = 0;
  // A date as a person types it, in the order of the short date or as ISO; nullopt otherwise.
  [[nodiscard]] virtual std::optional<Date> ParseDate(std::string_view text) const = 0;
};

}  // namespace corvanta::inline platform
