#include "exchange/text/DateParts.h"

#include "platform/TextCase.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace corvanta::inline exchange {
namespace {

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

std::optional<DatePart> NumberPart(std::string_view digits) {
  constexpr std::size_t kMaxDigits = 8;
  if (digits.size() > kMaxDigits) return std::nullopt;
  DatePart part;
  part.digits = digits.size();
  for (const char c : digits) part.number = part.number * 10 + (c - '0');
  return part;
}

// Nothing, a time of day, a weekday; all of these also behind "г." or a full stop.
bool IsBehindDate(std::string_view rest) {
  const std::string_view next = rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
  const std::string_view word = RunOf(next, IsDateLetter);
  const bool hasFiller = !word.empty() && IsFiller(word);
  if (hasFiller) rest = next.substr(word.size());
  if (hasFiller ? rest.starts_with('.') : next.starts_with('.')) {
    rest = (hasFiller ? rest : next).substr(1);
  }
  return rest.empty() || rest.find_first_of(" \tT,[(") == 0;
}

// "20200213103000": a day with its time of day.
std::string_view WithoutTime(std::string_view digits) {
  constexpr std::size_t kDay = 8;
  const bool isMoment =
      digits.size() == 14 && (digits.starts_with("19") || digits.starts_with("20"));
  return isMoment ? digits.substr(0, kDay) : digits;
}

}  // namespace

bool DateParts::HasWord() const {
  return std::ranges::any_of(part, [](const DatePart& p) { return !p.word.empty(); });
}

bool DateParts::IsRun() const {
  return count == 1 && (part[0].digits == 6 || part[0].digits == 8);
}

bool IsDateDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsDateLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

std::string_view RunOf(std::string_view text, bool (*belongs)(char)) {
  std::size_t end = 0;
  while (end < text.size() && belongs(text[end])) ++end;
  return text.substr(0, end);
}

std::string PlainDate(std::string_view text) {
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

DateParts PartRun(const DatePart& run, DateOrder order) {
  DateParts parts;
  parts.count = 3;
  parts.isWhole = true;
  const bool yearFirst = order == DateOrder::YearMonthDay;
  const std::size_t year = run.digits == 8 ? 4 : 2;
  int rest = run.number;
  const auto cutLast = [&rest](std::size_t digits) {
    const int scale = digits == 4 ? 10000 : 100;
    const DatePart part{rest % scale, digits, {}};
    rest /= scale;
    return part;
  };
  parts.part[2] = cutLast(yearFirst ? 2 : year);
  parts.part[1] = cutLast(2);
  parts.part[0] = cutLast(yearFirst ? year : 2);
  return parts;
}

DateParts SplitDate(std::string_view text) {
  DateParts parts;
  bool apostrophe = false;
  while (!text.empty() && parts.count < parts.part.size()) {
    if (IsDateDigit(text.front())) {
      const std::string_view digits = RunOf(text, IsDateDigit);
      const std::optional<DatePart> part = NumberPart(WithoutTime(digits));
      if (!part) return {};
      parts.apostrophe = apostrophe;
      apostrophe = false;
      parts.part[parts.count++] = *part;
      text.remove_prefix(digits.size());
      if (parts.count == 1 && part->digits > kYearDigits) break;
    } else if (IsDateLetter(text.front())) {
      const std::string_view word = RunOf(text, IsDateLetter);
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

}  // namespace corvanta::inline exchange
