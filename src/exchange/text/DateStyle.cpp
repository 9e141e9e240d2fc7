#include "exchange/text/DateStyle.h"

#include "exchange/text/DateParts.h"
#include "platform/TextCase.h"
#include "platform/TwoDigitYear.h"

#include <algorithm>
#include <string>

namespace corvanta::inline exchange {
namespace {

constexpr std::array kOrders = {DateOrder::DayMonthYear, DateOrder::MonthDayYear,
                                DateOrder::YearMonthDay};
constexpr int kFirstYear = 100;  // of those written with four digits

std::optional<int> YearOf(const DatePart& part) {
  if (part.digits == kYearDigits) {
    return part.number >= kFirstYear ? std::optional(part.number) : std::nullopt;
  }
  if (part.digits == 0 || part.digits > 2) return std::nullopt;
  return YearOfTwoDigits(part.number);
}

std::optional<int> EnglishMonth(std::string_view word) {
  constexpr std::array<std::string_view, 12> kMonths = {
      "january", "february", "march",     "april",   "may",      "june",
      "july",    "august",   "september", "october", "november", "december"};
  const std::string lower = ToLower(word);
  if (lower.size() < 3) return std::nullopt;
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (kMonths[i].starts_with(lower)) return static_cast<int>(i) + 1;
  }
  return std::nullopt;
}

std::optional<Date> MakeDate(const DatePart& year, int month, const DatePart& day) {
  const std::optional<int> whole = YearOf(year);
  if (!whole || day.digits == 0 || day.digits > 2) return std::nullopt;
  return Date::FromYmd(*whole, month, day.number);
}

// A month's name that is not English is looked for as the user's language writes a date.
std::optional<int> MonthOf(std::string_view word, const Locale& locale) {
  if (const auto month = EnglishMonth(word)) return month;
  for (const std::string& text :
       {"1 " + std::string(word) + " 2000", std::string(word) + " 1, 2000",
        "1. " + std::string(word) + " 2000", "1 de " + std::string(word) + " de 2000"}) {
    const std::optional<Date> first = locale.ParseDate(text);
    if (first && first->Year() == 2000 && first->Day() == 1) return first->Month();
  }
  return std::nullopt;
}

std::optional<Date> DateOfWords(const DateParts& parts, DateOrder order, const Locale& locale) {
  const auto& part = parts.part;
  const bool wordFirst = !part[0].word.empty();
  if (parts.count != 3 || !parts.isWhole || !part[2].word.empty()) return std::nullopt;
  const std::optional<int> month = MonthOf(wordFirst ? part[0].word : part[1].word, locale);
  if (!month) return std::nullopt;
  if (wordFirst) return MakeDate(part[2], *month, part[1]);
  const bool yearFirst = part[0].digits > 2 || part[0].number > 31 ||
                         (order == DateOrder::YearMonthDay && part[2].digits <= 2);
  return yearFirst ? MakeDate(part[0], *month, part[2]) : MakeDate(part[2], *month, part[0]);
}

// As the user's language writes a day out, in whatever words.
std::optional<Date> DateOfLanguage(const std::string& text, const Locale& locale) {
  constexpr std::size_t kLongest = 60;
  const bool hasLetters = std::ranges::any_of(text, IsDateLetter);
  if (!hasLetters || text.size() > kLongest) return std::nullopt;
  // Any number would do for a year there.
  bool hasYear = false;
  for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(1)) {
    const std::size_t digits = RunOf(rest, IsDateDigit).size();
    if (digits == 0) continue;
    if (digits > 2 && digits != kYearDigits) return std::nullopt;
    hasYear = hasYear || digits == kYearDigits;
    rest.remove_prefix(digits - 1);
  }
  return hasYear ? locale.ParseDate(text) : std::nullopt;
}

// The parts as day, month and year; nullopt where the order cannot be that of the parts.
struct Reading {
  DatePart day;
  DatePart month;
  DatePart year;
};

std::optional<Reading> ReadIn(const DateParts& parts, DateOrder order) {
  const auto& [a, b, c] = parts.part;
  Reading reading{a, b, c};
  if (order == DateOrder::MonthDayYear) reading = {b, a, c};
  if (order == DateOrder::YearMonthDay) reading = {c, b, a};
  const bool fits = reading.day.digits <= 2 && reading.month.digits <= 2 && YearOf(reading.year);
  if (!fits || (order == DateOrder::YearMonthDay && parts.apostrophe)) return std::nullopt;
  return reading;
}

bool IsInRange(const Reading& reading) {
  return reading.day.number >= 1 && reading.day.number <= 31 && reading.month.number >= 1 &&
         reading.month.number <= 12;
}

// A year of four digits leaves one order, or two of which a part above 12 leaves one.
DateOrder ProvenOrder(const DateParts& parts, DateOrder order) {
  const auto& [a, b, c] = parts.part;
  if (a.digits == kYearDigits) return DateOrder::YearMonthDay;
  if (order != DateOrder::YearMonthDay || (c.digits != kYearDigits && !parts.apostrophe)) {
    return order;
  }
  if (a.number > 12) return DateOrder::DayMonthYear;
  return b.number > 12 ? DateOrder::MonthDayYear : order;
}

}  // namespace

std::optional<Date> ReadFileDate(std::string_view text, DateOrder order, const Locale& locale,
                                 DateTolerance tolerance) {
  const std::string plain = PlainDate(text);
  DateParts parts = SplitDate(plain);
  if (parts.HasWord()) {
    const std::optional<Date> date = DateOfWords(parts, order, locale);
    return date ? date : DateOfLanguage(plain, locale);
  }
  if (!parts.isWhole) return DateOfLanguage(plain, locale);
  const bool isRun = parts.IsRun();
  if (isRun) parts = PartRun(parts.part[0], order);
  if (parts.count != 3) return std::nullopt;
  if (tolerance == DateTolerance::AnyProven && !isRun) order = ProvenOrder(parts, order);
  const std::optional<Reading> reading = ReadIn(parts, order);
  if (!reading) return std::nullopt;
  return MakeDate(reading->year, reading->month.number, reading->day);
}

bool IsDateText(std::string_view text, const Locale& locale) {
  return std::ranges::any_of(kOrders, [&](DateOrder order) {
    return ReadFileDate(text, order, locale, DateTolerance::OrderOnly).has_value();
  });
}

bool IsDateShape(std::string_view text, const Locale& locale) {
  const std::string plain = PlainDate(text);
  const DateParts parts = SplitDate(plain);
  if (DateOfLanguage(plain, locale)) return true;
  if (!parts.isWhole) return false;
  if (parts.HasWord()) {
    const auto* const month =
        std::ranges::find_if(parts.part, [](const DatePart& part) { return !part.word.empty(); });
    return parts.count == 3 && MonthOf(month->word, locale).has_value();
  }
  return std::ranges::any_of(kOrders, [&](DateOrder order) {
    const DateParts split = parts.IsRun() ? PartRun(parts.part[0], order) : parts;
    return split.count == 3 && ReadIn(split, order).has_value();
  });
}

void DateOrderFinder::Add(std::string_view text) {
  const std::string plain = PlainDate(text);
  const DateParts parts = SplitDate(plain);
  if (parts.HasWord() || !parts.isWhole) return;
  for (std::size_t i = 0; i < kOrders.size(); ++i) {
    const DateParts split = parts.IsRun() ? PartRun(parts.part[0], kOrders[i]) : parts;
    if (split.count != 3) continue;
    const std::optional<Reading> reading = ReadIn(split, kOrders[i]);
    if (reading && IsInRange(*reading)) ++votes_[i];
  }
}

DateOrder DateOrderFinder::Find(const Locale& locale) const {
  const std::size_t most = *std::ranges::max_element(votes_);
  const DateOrder own = locale.ShortDateOrder();
  if (votes_[static_cast<std::size_t>(std::ranges::find(kOrders, own) - kOrders.begin())] == most) {
    return own;
  }
  return kOrders[static_cast<std::size_t>(std::ranges::find(votes_, most) - votes_.begin())];
}

}  // namespace corvanta::inline exchange
