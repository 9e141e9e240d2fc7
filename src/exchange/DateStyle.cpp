#include "exchange/DateStyle.h"

#include "platform/TextCase.h"
#include "platform/TwoDigitYear.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace corvanta::inline exchange {
namespace {

constexpr std::array kOrders = {DateOrder::DayMonthYear, DateOrder::MonthDayYear,
                                DateOrder::YearMonthDay};
constexpr std::size_t kWholeYear = 4;
constexpr int kFirstYear = 100;  // of those written with four digits

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
// Letters of any language: what is not ASCII is taken for one.
bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

struct Part {
  int number = 0;
  std::size_t digits = 0;
  std::string_view word;  // of a month's name; without digits then
};

struct Parts {
  std::array<Part, 3> part;
  std::size_t count = 0;
  bool apostrophe = false;  // before the last part
  bool isWhole = false;     // nothing but a time of day stands behind it

  [[nodiscard]] bool HasWord() const {
    return std::ranges::any_of(part, [](const Part& p) { return !p.word.empty(); });
  }
};

std::string_view RunOf(std::string_view text, bool (*belongs)(char)) {
  std::size_t end = 0;
  while (end < text.size() && belongs(text[end])) ++end;
  return text.substr(0, end);
}

bool IsWeekday(std::string_view word) {
  constexpr std::string_view kDays = "montuewedthufrisatsun";
  if (word.size() < 3) return false;
  const std::size_t at = kDays.find(ToLower(word.substr(0, 3)));
  return at != std::string_view::npos && at % 3 == 0;
}

// "13th of February", "13 de febrero", "13.2.2020 г.", "2020年2月13日".
bool IsFiller(std::string_view word) {
  constexpr std::array<std::string_view, 19> kFillers = {
      "st", "nd",  "rd",   "th",   "of", "de", "del", "г",  "год", "года",
      "р",  "рік", "року", "gada", "年", "月", "日",  "년", "월"};
  return std::ranges::find(kFillers, ToLower(word)) != kFillers.end() || word == "일";
}

// With plain blanks and digits, and without marks for the direction of writing.
std::string Plain(std::string_view text) {
  std::string plain;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const auto size = static_cast<std::int32_t>(text.size());
  for (std::int32_t at = 0; at < size;) {
    const std::int32_t begin = at;
    UChar32 c = 0;
    U8_NEXT(bytes, at, size, c);
    if (c < 0x80) {
      plain += text[static_cast<std::size_t>(begin)];
    } else if (u_charDigitValue(c) >= 0) {
      plain += static_cast<char>('0' + u_charDigitValue(c));
    } else if (u_isUWhiteSpace(c) != 0) {
      plain += ' ';
    } else if (u_charType(c) != U_FORMAT_CHAR) {
      plain += text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(at - begin));
    }
  }
  return std::string(Trim(plain));
}

std::optional<Part> NumberPart(std::string_view digits) {
  constexpr std::size_t kMaxDigits = 8;
  if (digits.size() > kMaxDigits) return std::nullopt;
  Part part;
  part.digits = digits.size();
  for (const char c : digits) part.number = part.number * 10 + (c - '0');
  return part;
}

// Nothing, a time of day, a weekday; all of these also behind "г." or a full stop.
bool IsBehindDate(std::string_view rest) {
  const std::string_view next = rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
  const std::string_view word = RunOf(next, IsLetter);
  const bool hasFiller = !word.empty() && IsFiller(word);
  if (hasFiller) rest = next.substr(word.size());
  if (hasFiller ? rest.starts_with('.') : next.starts_with('.')) {
    rest = (hasFiller ? rest : next).substr(1);
  }
  return rest.empty() || rest.find_first_of(" \tT,[(") == 0;
}

// Six or eight digits in a row are all three parts.
Parts Together(const Part& run, DateOrder order) {
  Parts parts;
  parts.count = 3;
  parts.isWhole = true;
  const bool yearFirst = order == DateOrder::YearMonthDay;
  const std::size_t year = run.digits == 8 ? 4 : 2;
  int rest = run.number;
  const auto cutLast = [&rest](std::size_t digits) {
    const int scale = digits == 4 ? 10000 : 100;
    const Part part{rest % scale, digits, {}};
    rest /= scale;
    return part;
  };
  parts.part[2] = cutLast(yearFirst ? 2 : year);
  parts.part[1] = cutLast(2);
  parts.part[0] = cutLast(yearFirst ? year : 2);
  return parts;
}

// "20200213103000": a day with its time of day.
std::string_view WithoutTime(std::string_view digits) {
  constexpr std::size_t kDay = 8;
  const bool isMoment =
      digits.size() == 14 && (digits.starts_with("19") || digits.starts_with("20"));
  return isMoment ? digits.substr(0, kDay) : digits;
}

// Of a plain text, into which the parts point.
Parts Split(std::string_view text) {
  Parts parts;
  bool apostrophe = false;
  while (!text.empty() && parts.count < parts.part.size()) {
    if (IsDigit(text.front())) {
      const std::string_view digits = RunOf(text, IsDigit);
      const std::optional<Part> part = NumberPart(WithoutTime(digits));
      if (!part) return {};
      parts.apostrophe = apostrophe;
      apostrophe = false;
      parts.part[parts.count++] = *part;
      text.remove_prefix(digits.size());
      if (parts.count == 1 && part->digits > kWholeYear) break;
    } else if (IsLetter(text.front())) {
      const std::string_view word = RunOf(text, IsLetter);
      text.remove_prefix(word.size());
      if (IsFiller(word) || (parts.count == 0 && IsWeekday(word))) continue;
      if (parts.HasWord()) return {};
      parts.part[parts.count++].word = word;
    } else {
      apostrophe = apostrophe || text.front() == '\'';
      text.remove_prefix(1);
    }
  }
  parts.isWhole = IsBehindDate(text);
  return parts;
}

std::optional<int> YearOf(const Part& part) {
  if (part.digits == kWholeYear) {
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

std::optional<Date> MakeDate(const Part& year, int month, const Part& day) {
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

std::optional<Date> DateOfWords(const Parts& parts, DateOrder order, const Locale& locale) {
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
  const bool hasLetters = std::ranges::any_of(text, IsLetter);
  if (!hasLetters || text.size() > kLongest) return std::nullopt;
  // Any number would do for a year there.
  bool hasYear = false;
  for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(1)) {
    const std::size_t digits = RunOf(rest, IsDigit).size();
    if (digits == 0) continue;
    if (digits > 2 && digits != kWholeYear) return std::nullopt;
    hasYear = hasYear || digits == kWholeYear;
    rest.remove_prefix(digits - 1);
  }
  return hasYear ? locale.ParseDate(text) : std::nullopt;
}

// The parts as day, month and year; nullopt where the order cannot be that of the parts.
struct Reading {
  Part day;
  Part month;
  Part year;
};

std::optional<Reading> ReadIn(const Parts& parts, DateOrder order) {
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

bool IsRun(const Parts& parts) {
  return parts.count == 1 && (parts.part[0].digits == 6 || parts.part[0].digits == 8);
}

// A year of four digits leaves one order, or two of which a part above 12 leaves one.
DateOrder ProvenOrder(const Parts& parts, DateOrder order) {
  const auto& [a, b, c] = parts.part;
  if (a.digits == kWholeYear) return DateOrder::YearMonthDay;
  if (order != DateOrder::YearMonthDay || (c.digits != kWholeYear && !parts.apostrophe)) {
    return order;
  }
  if (a.number > 12) return DateOrder::DayMonthYear;
  return b.number > 12 ? DateOrder::MonthDayYear : order;
}

}  // namespace

std::optional<Date> ReadFileDate(std::string_view text, DateOrder order, const Locale& locale,
                                 DateTolerance tolerance) {
  const std::string plain = Plain(text);
  Parts parts = Split(plain);
  if (parts.HasWord()) {
    const std::optional<Date> date = DateOfWords(parts, order, locale);
    return date ? date : DateOfLanguage(plain, locale);
  }
  if (!parts.isWhole) return DateOfLanguage(plain, locale);
  const bool isRun = IsRun(parts);
  if (isRun) parts = Together(parts.part[0], order);
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
  const std::string plain = Plain(text);
  const Parts parts = Split(plain);
  if (DateOfLanguage(plain, locale)) return true;
  if (!parts.isWhole) return false;
  if (parts.HasWord()) {
    const auto* const month =
        std::ranges::find_if(parts.part, [](const Part& part) { return !part.word.empty(); });
    return parts.count == 3 && MonthOf(month->word, locale).has_value();
  }
  return std::ranges::any_of(kOrders, [&](DateOrder order) {
    const Parts split = IsRun(parts) ? Together(parts.part[0], order) : parts;
    return split.count == 3 && ReadIn(split, order).has_value();
  });
}

void DateOrderFinder::Add(std::string_view text) {
  const std::string plain = Plain(text);
  const Parts parts = Split(plain);
  if (parts.HasWord() || !parts.isWhole) return;
  for (std::size_t i = 0; i < kOrders.size(); ++i) {
    const Parts split = IsRun(parts) ? Together(parts.part[0], kOrders[i]) : parts;
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
