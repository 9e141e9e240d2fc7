#include "platform/IcuLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>

namespace corvanta {
namespace {

Date Day(const char* iso) {
  return Date::FromIso(iso).value();
}

using Variables = std::map<std::string, std::string>;

// Sets variables of the environment for one test and puts the former ones back.
class Environment {
 public:
  explicit Environment(const Variables& variables) {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LC_MONETARY", "LC_TIME", "LANG"}) {
      if (const char* value = std::getenv(name)) former_[name] = value;
      ::unsetenv(name);
    }
    for (const auto& [name, value] : variables) ::setenv(name.c_str(), value.c_str(), 1);
  }
  ~Environment() {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LC_MONETARY", "LC_TIME", "LANG"}) {
      ::unsetenv(name);
    }
    for (const auto& [name, value] : former_) ::setenv(name.c_str(), value.c_str(), 1);
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  Variables former_;
};

TEST(IcuLocale, WritesNumbersAndDatesOfEachCountry) {
  struct Row {
    const char* locale;
    const char* number;  // -1234567.891
    const char* shortDate;
    const char* currency;
    DateOrder order;
  };
  for (const Row& row : {
           Row{"en_GB", "-1,234,567.89", "05/11/2026", "GBP", DateOrder::DayMonthYear},
           Row{"en_US", "-1,234,567.89", "11/5/2026", "USD", DateOrder::MonthDayYear},
           Row{"de_DE", "-1.234.567,89", "05.11.2026", "EUR", DateOrder::DayMonthYear},
           Row{"fr_FR", "-1\u202F234\u202F567,89", "05/11/2026", "EUR", DateOrder::DayMonthYear},
           Row{"de_CH", "-1’234’567.89", "05.11.2026", "CHF", DateOrder::DayMonthYear},
           Row{"hi_IN", "-12,34,567.89", "5/11/2026", "INR", DateOrder::DayMonthYear},
           Row{"ar_EG", "-1,234,567.89", "5/11/2026", "EGP", DateOrder::DayMonthYear},
           Row{"sv_SE", "-1\u00A0234\u00A0567,89", "2026-11-05", "SEK", DateOrder::YearMonthDay},
           Row{"ja_JP.UTF-8", "-1,234,567.89", "2026/11/05", "JPY", DateOrder::YearMonthDay},
           Row{"fa_IR", "-1,234,567.89", "2026/11/5", "IRR", DateOrder::YearMonthDay},
           Row{"ar_KW", "-1,234,567.891", "5/11/2026", "KWD", DateOrder::DayMonthYear},
           Row{"th_TH", "-1,234,567.89", "5/11/2026", "THB", DateOrder::DayMonthYear},
       }) {
    const IcuLocale locale(row.locale);
    EXPECT_EQ(locale.FormatNumber(-1234567.891), row.number) << row.locale;
    EXPECT_EQ(locale.FormatShortDate(Day("2026-11-05")), row.shortDate) << row.locale;
    EXPECT_EQ(locale.CurrencyCode(), row.currency) << row.locale;
    EXPECT_EQ(locale.ShortDateOrder(), row.order) << row.locale;
    EXPECT_EQ(locale.ParseDate(row.shortDate), Day("2026-11-05")) << row.locale;
    const std::string longDate = locale.FormatLongDate(Day("2026-11-05"));
    EXPECT_EQ(locale.ParseDate(longDate), Day("2026-11-05")) << row.locale << ": " << longDate;
    for (const double value : {0.0, 0.01, -5.0, 999.99, 1234.5, -98765432.1}) {
      EXPECT_EQ(locale.ParseNumber(locale.FormatNumber(value, 2)), value) << row.locale;
    }
  }
  EXPECT_EQ(IcuLocale("es_ES").FormatNumber(1234.5), "1234,50");
  EXPECT_EQ(IcuLocale("es_ES").FormatNumber(12345.5), "12.345,50");
  EXPECT_EQ(IcuLocale("en_GB").FormatLongDate(Day("2026-11-05")), "5 November 2026");
  EXPECT_EQ(IcuLocale("en_GB").FormatLongDate(Day("1500-03-01")), "1 March 1500");
  EXPECT_EQ(IcuLocale("eo").CurrencyCode(), "");
}

TEST(IcuLocale, RoundsHalfAwayFromZeroAsWritten) {
  const IcuLocale locale("en_GB");
  struct Row {
    double value;
    int decimals;
    const char* expected;
  };
  for (const Row& row : {
           Row{2.675, 2, "2.68"},
           Row{1.005, 2, "1.01"},
           Row{0.125, 2, "0.13"},
           Row{-0.125, 2, "-0.13"},
           Row{2.5, 0, "3"},
           Row{-2.5, 0, "-3"},
           Row{-0.004, 2, "0.00"},
           Row{-0.0, 2, "0.00"},
           Row{-0.005, 2, "-0.01"},
           Row{999.995, 2, "1,000.00"},
           Row{0.1 + 0.2, 2, "0.30"},
           Row{1e15 / 8, 2, "125,000,000,000,000.00"},
           Row{1e22, 1, "10,000,000,000,000,000,000,000.0"},
           Row{1e-300, 4, "0.0000"},
           Row{0.0005, 3, "0.001"},
           Row{12.3456789, 6, "12.345679"},
       }) {
    EXPECT_EQ(locale.FormatNumber(row.value, row.decimals), row.expected);
  }
  EXPECT_FALSE(locale.ParseNumber(locale.FormatNumber(std::nan(""))));
  EXPECT_FALSE(locale.ParseNumber(locale.FormatNumber(std::numeric_limits<double>::infinity())));
}

TEST(IcuLocale, ReadsNumbersAsPeopleTypeThem) {
  struct Row {
    const char* locale;
    const char* text;
    std::optional<double> expected;
  };
  for (const Row& row : {
           Row{"en_GB", "1,234.56", 1234.56},
           Row{"en_GB", " 1 234.5 ", 1234.5},
           Row{"en_GB", "1'234.5", 1234.5},
           Row{"en_GB", "1\u00A0234\u202F567", 1234567},
           Row{"en_GB", "(12.50)", -12.5},
           Row{"en_GB", "12.50-", -12.5},
           Row{"en_GB", "\u22125", -5},
           Row{"en_GB", "+.5", 0.5},
           Row{"en_GB", "- 5.", -5},
           Row{"en_GB", "-£1,000", -1000},
           Row{"en_GB", "1,5", std::nullopt},
           Row{"en_GB", "1234,567", std::nullopt},
           Row{"en_GB", "1.2.3", std::nullopt},
           Row{"en_GB", "1.234,567", std::nullopt},
           Row{"en_GB", "-(5)", std::nullopt},
           Row{"en_GB", "--5", std::nullopt},
           Row{"en_GB", "(5", std::nullopt},
           Row{"en_GB", "5 apples", std::nullopt},
           Row{"en_GB", "1e5", std::nullopt},
           Row{"en_GB", "nan", std::nullopt},
           Row{"en_GB", "-", std::nullopt},
           Row{"en_GB", ".", std::nullopt},
           Row{"en_GB", "", std::nullopt},
           Row{"en_GB", "\xFF\xFE", std::nullopt},
           Row{"de_DE", "1.234,56", 1234.56},
           Row{"de_DE", "1.234", 1234},
           Row{"de_DE", "12.50", std::nullopt},
           Row{"fr_FR", "1 234,56", 1234.56},
           Row{"fr_FR", "12.50", 12.5},
           Row{"de_CH", "1'234.56", 1234.56},
           Row{"de_CH", "12,50", 12.5},
           Row{"hi_IN", "१२,३४,५६७.८९", 1234567.89},
           Row{"ar_EG", "\u061C-١٢٣", -123},
           Row{"sv_SE", "\u22121\u00A0234,5", -1234.5},
       }) {
    EXPECT_EQ(IcuLocale(row.locale).ParseNumber(row.text), row.expected)
        << row.locale << " \"" << row.text << "\"";
  }
  EXPECT_FALSE(std::signbit(*IcuLocale("en_GB").ParseNumber("-0")));
  EXPECT_FALSE(IcuLocale("en_GB").ParseNumber(std::string(400, '9')));
}

TEST(IcuLocale, ReadsDatesAsPeopleTypeThem) {
  struct Row {
    const char* locale;
    const char* text;
    const char* expected;  // empty: no date
  };
  for (const Row& row : {
           Row{"en_GB", "5/11/26", "2026-11-05"},
           Row{"en_GB", "05-11-1999", "1999-11-05"},
           Row{"en_GB", "5.11.71", "1971-11-05"},
           Row{"en_GB", "5/11/69", "2069-11-05"},
           Row{"en_GB", "5/11/70", "1970-11-05"},
           Row{"en_GB", "5/11/00", "2000-11-05"},
           Row{"en_GB", "2026-11-05", "2026-11-05"},
           Row{"en_GB", "2026/11/5", "2026-11-05"},
           Row{"en_GB", " 5 Nov 2026 ", "2026-11-05"},
           Row{"en_GB", "5 November 26", "2026-11-05"},
           Row{"en_US", "11/5/2026", "2026-11-05"},
           Row{"en_US", "13/5/2026", ""},
           Row{"en_GB", "31/02/2026", ""},
           Row{"en_GB", "5/11", ""},
           Row{"en_GB", "1/2/3/4", ""},
           Row{"en_GB", "99999/1/1", ""},
           Row{"en_GB", "soon", ""},
           Row{"en_GB", "", ""},
           Row{"sv_SE", "26-11-05", "2026-11-05"},
       }) {
    const auto date = IcuLocale(row.locale).ParseDate(row.text);
    EXPECT_EQ(date ? date->ToIso() : "", row.expected) << row.locale << " " << row.text;
  }
}

TEST(IcuLocale, FollowsTheEnvironment) {
  {
    const Environment environment(
        {{"LANG", "de_DE.UTF-8"}, {"LC_MONETARY", "de_CH.UTF-8"}, {"LC_TIME", "en_US.UTF-8"}});
    const IcuLocale locale;
    EXPECT_EQ(locale.DecimalSeparator(), ",");
    EXPECT_EQ(locale.CurrencyCode(), "CHF");
    EXPECT_EQ(locale.ShortDateOrder(), DateOrder::MonthDayYear);
  }
  {
    const Environment environment(Variables{{"LC_ALL", "fr_FR"}, {"LC_NUMERIC", "en_GB"}});
    EXPECT_EQ(IcuLocale().DecimalSeparator(), ",");
  }
  for (const char* plain : {"C", "POSIX", "C.UTF-8", ""}) {
    const Environment environment(Variables{{"LANG", plain}});
    const IcuLocale locale;
    EXPECT_EQ(locale.FormatNumber(1234.5), "1,234.50") << plain;
    EXPECT_EQ(locale.CurrencyCode(), "USD") << plain;
  }
}

}  // namespace
}  // namespace corvanta
