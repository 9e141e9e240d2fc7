#include "platform/NumberStyle.h"

#include "platform/BankWords.h"
#include "platform/Locale.h"
#include "platform/NumberText.h"
#include "platform/TextCase.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

namespace corvanta::inline platform {
namespace {

constexpr double kLargest = 1e15;  // a double still holds the cents of what is smaller

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// What stands around the points and commas of a text.
struct Marks {
  std::size_t points = 0;
  std::size_t commas = 0;
  std::size_t before = 0;  // digits before the first mark
  std::size_t after = 0;   // digits after the last mark
  char first = 0;
  char last = 0;
  bool startsWithZero = false;
  bool otherGroups = false;  // blanks, apostrophes between digits
  bool evenGroups = true;    // three digits between any two marks

  explicit Marks(std::string_view text) {
    bool gap = false;
    for (const char c : text) {
      if (IsDigit(c)) {
        if (before == 0 && first == 0) startsWithZero = c == '0';
        ++(first == 0 ? before : after);
        otherGroups = otherGroups || gap;
        gap = false;
      } else if (c == '.' || c == ',') {
        if (first != 0 && after != 3) evenGroups = false;
        if (first == 0) first = c;
        ++(c == '.' ? points : commas);
        last = c;
        after = 0;
        gap = false;
      } else {
        gap = before > 0;
      }
    }
  }
};

DecimalMark MarkOf(char c) {
  return c == ',' ? DecimalMark::Comma : DecimalMark::Point;
}

// Currencies that are written as a word, in lower case; codes of three capitals count as well.
constexpr std::array<std::string_view, 35> kCurrencyWords = {
    "kr",  "kr.",  "fr", "fr.",     "sfr", "sfr.", "rs",   "rs.",  "zl",  "z\u0142", "ft", "ft.",
    "lei", "r",    "kc", "k\u010D", "km",  "din",  "din.", "tl",   "eur", "euro",    "лв", "лв.",
    "руб", "руб.", "р",  "р.",      "грн", "грн.", "дин",  "дин.", "ден", "元",      "円"};

bool IsCurrencyWord(std::string_view word) {
  const bool isCode =
      word.size() == 3 && std::ranges::all_of(word, [](char c) { return c >= 'A' && c <= 'Z'; });
  return isCode || std::ranges::find(kCurrencyWords, ToLower(word)) != kCurrencyWords.end();
}

const std::uint8_t* Bytes(std::string_view text) {
  return reinterpret_cast<const std::uint8_t*>(text.data());
}

// The letters at the front with a full stop behind them.
std::string_view LeadingWord(std::string_view text) {
  const auto size = static_cast<std::int32_t>(text.size());
  std::int32_t end = 0;
  for (std::int32_t at = 0; at < size; end = at) {
    UChar32 c = 0;
    U8_NEXT(Bytes(text), at, size, c);
    if (c < 0 || u_isalpha(c) == 0) break;
  }
  if (end > 0 && end < size && text[static_cast<std::size_t>(end)] == '.') ++end;
  return text.substr(0, static_cast<std::size_t>(end));
}

// The letters at the end, also before a full stop.
std::string_view TrailingWord(std::string_view text) {
  const auto size = static_cast<std::int32_t>(text.size());
  const std::int32_t last = text.ends_with('.') ? size - 1 : size;
  std::int32_t begin = last;
  for (std::int32_t at = begin; at > 0; begin = at) {
    UChar32 c = 0;
    U8_PREV(Bytes(text), 0, at, c);
    if (c < 0 || u_isalpha(c) == 0) break;
  }
  return begin == last ? std::string_view() : text.substr(static_cast<std::size_t>(begin));
}

// "US$" and "A$": a country's letters before the sign of its currency.
bool IsCurrencyPrefix(std::string_view word, std::string_view rest) {
  return rest.starts_with('$') && word.size() <= 3 &&
         std::ranges::all_of(word, [](char c) { return c >= 'A' && c <= 'Z'; });
}

// "5.-" and "5,--" are five without cents, not minus five.
std::string WithoutDash(std::string number) {
  for (const std::string_view dash : {"--", "-", "\xE2\x80\x93", "\xE2\x80\x94"}) {
    if (!number.ends_with(dash) || number.size() == dash.size()) continue;
    const char before = number[number.size() - dash.size() - 1];
    if (before == '.' || before == ',') number.resize(number.size() - dash.size());
  }
  return number;
}

// The number without words around it; nullopt where a word is none that belongs to money.
std::optional<std::string> WithoutWords(std::string_view text, bool& isDebit, bool& isCredit) {
  text = Trim(text);
  std::size_t start = 0;
  while (start < text.size() && std::string_view("-+( ").find(text[start]) != std::string::npos) {
    ++start;
  }
  std::string number(text);
  if (const std::string_view word = LeadingWord(text.substr(start)); !word.empty()) {
    const std::string_view rest = Trim(text.substr(start + word.size()));
    if (!IsCurrencyWord(word) && !IsCurrencyPrefix(word, rest)) return std::nullopt;
    number = std::string(text.substr(0, start)) + std::string(rest);
  }
  const std::string_view word = TrailingWord(number);
  if (word.empty()) return WithoutDash(std::move(number));
  const std::optional<int> side = SideOfWord(word);
  isDebit = side == -1;
  isCredit = side == 1;
  if (!side && !IsCurrencyWord(word)) return std::nullopt;
  number.resize(number.size() - word.size());
  return WithoutDash(std::string(Trim(number)));
}

// Nearly every number of a file: digits with a point and a minus sign at most.
std::optional<double> ReadPlain(std::string_view text) {
  std::size_t points = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '.') ++points;
    if (!IsDigit(text[i]) && text[i] != '.' && (text[i] != '-' || i > 0)) return std::nullopt;
  }
  if (points > 1 || text.empty() || !IsDigit(text.back())) return std::nullopt;
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

std::optional<double> ReadWith(std::string_view text, DecimalMark mark) {
  if (mark == DecimalMark::Point) {
    if (const auto plain = ReadPlain(text)) return *plain == 0.0 ? 0.0 : *plain;
    return ReadNumber(text, ".", ",");
  }
  return ReadNumber(text, ",", ".");
}

}  // namespace

std::optional<DecimalMark> ProvenMark(std::string_view text) {
  const Marks marks(text);
  if (marks.first == 0) return std::nullopt;
  const std::size_t ofLast = marks.last == '.' ? marks.points : marks.commas;
  if (marks.points > 0 && marks.commas > 0) {
    return ofLast == 1 ? std::optional(MarkOf(marks.last)) : std::nullopt;
  }
  if (ofLast > 1) {
    // Groups alone: the decimals, where there are any, stand behind the other mark.
    if (!marks.evenGroups || marks.after != 3) return std::nullopt;
    return marks.last == '.' ? DecimalMark::Comma : DecimalMark::Point;
  }
  const bool isDecimal = marks.after != 3 || marks.before == 0 || marks.before > 3 ||
                         marks.startsWithZero || marks.otherGroups;
  return isDecimal ? std::optional(MarkOf(marks.last)) : std::nullopt;
}

DecimalMark MarkOf(const Locale& locale) {
  return locale.DecimalSeparator() == "," ? DecimalMark::Comma : DecimalMark::Point;
}

std::optional<double> ReadFileNumber(std::string_view text, std::optional<DecimalMark> mark) {
  bool isDebit = false;
  bool isCredit = false;
  const std::optional<std::string> number = WithoutWords(text, isDebit, isCredit);
  if (!number) return std::nullopt;
  const std::optional<DecimalMark> proven = ProvenMark(*number);
  const DecimalMark own = proven ? *proven : mark.value_or(MarkOf(Marks(*number).last));
  const std::optional<double> value = ReadWith(*number, own);
  if (!value || !(std::fabs(*value) <= kLargest)) return std::nullopt;
  // A word beside a sign of its own would say two things.
  if ((isDebit || isCredit) && *value < 0) return std::nullopt;
  return isDebit && *value != 0 ? -*value : *value;
}

bool IsZeroText(std::string_view text) {
  return ReadFileNumber(text, DecimalMark::Point) == 0.0;
}

void DecimalMarkFinder::Add(std::string_view text) {
  const std::optional<DecimalMark> mark = ProvenMark(text);
  if (!mark) return;
  ++(*mark == DecimalMark::Point ? points_ : commas_);
}

DecimalMark DecimalMarkFinder::Find(const Locale& locale) const {
  if (points_ == commas_) return MarkOf(locale);
  return points_ > commas_ ? DecimalMark::Point : DecimalMark::Comma;
}

}  // namespace corvanta::inline platform
