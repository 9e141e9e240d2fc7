#pragma once

#include "platform/Locale.h"

#include <memory>
#include <vector>

namespace corvanta::inline platform {

// The locale of the environment, or one by name, over ICU. Numbers, money and dates may follow
// different locales, as LC_NUMERIC, LC_MONETARY and LC_TIME say; LC_ALL overrides them and LANG
// stands for what is not set. "C" and "POSIX" count as en_US. Calendar dates are Gregorian and
// digits Latin everywhere, whatever the locale's own are.
class IcuLocale : public Locale {
 public:
  // A name such as "de_CH", "de_CH.UTF-8" or "de-CH"; empty for the environment's.
  explicit IcuLocale(const std::string& name = {});
  ~IcuLocale() override;

  [[nodiscard]] std::string DecimalSeparator() const override { return decimal_; }
  [[nodiscard]] std::string GroupSeparator() const override { return group_; }
  [[nodiscard]] int DefaultDecimals() const override { return decimals_; }
  [[nodiscard]] std::string CurrencyCode() const override { return currency_; }
  [[nodiscard]] DateOrder ShortDateOrder() const override { return order_; }

  [[nodiscard]] std::string FormatNumber(double value, int decimals = -1) const override;
  // Further leniency: apostrophes and any blanks group digits too, a trailing sign is a sign, one
  // currency sign may stand at either end, and a point or comma that means nothing in the locale
  // is the decimal separator. Grouping must be in its place, so that "1,5" is not taken for 15.
  [[nodiscard]] std::optional<double> ParseNumber(std::string_view text) const override;
  [[nodiscard]] std::string FormatShortDate(Date date) const override;
  [[nodiscard]] std::string FormatLongDate(Date date) const override;
  // Two-digit years: 00 to 69 are 2000 to 2069, 70 to 99 are 1970 to 1999. Months may be names.
  [[nodiscard]] std::optional<Date> ParseDate(std::string_view text) const override;

 private:
  struct DatePatterns;
  // One piece of the short date: a field ('d', 'M', 'y') with its width, or (0) a literal.
  struct DatePiece {
    char field = 0;
    int width = 0;
    std::string literal;
  };

  void LoadNumbers(const std::string& name);
  void LoadCurrency(const std::string& name);
  void LoadDates(const std::string& name);
  void LoadShortPattern(const std::string& pattern);
  [[nodiscard]] std::string Grouped(std::string_view digits) const;
  [[nodiscard]] std::optional<Date> DateOfNumbers(const std::vector<std::string>& numbers) const;

  std::string decimal_ = ".";
  std::string group_ = ",";
  int groupSize_ = 3;
  int upperGroupSize_ = 3;     // of the groups above the lowest one
  int fewestGroupDigits_ = 1;  // digits that must stand before the lowest group
  std::string currency_;
  int decimals_ = 2;
  DateOrder order_ = DateOrder::DayMonthYear;
  std::vector<DatePiece> shortDate_;
  std::unique_ptr<DatePatterns> patterns_;
};

}  // namespace corvanta::inline platform
