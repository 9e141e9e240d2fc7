#include "store/sql/lexer/Literal.h"

#include "platform/Date.h"
#include "platform/TextCase.h"
#include "store/sql/lexer/Lexer.h"

#include <array>
#include <charconv>
#include <optional>

namespace corvanta::jet {
namespace {

// Up to `count` whole numbers separated by the sign given; false when the text is anything else.
template <std::size_t count>
bool ReadNumbers(std::string_view text, char separator, std::array<int, count>& numbers) {
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) {
      if (at == end || *at != separator) return false;
      ++at;
    }
    const auto [next, error] = std::from_chars(at, end, numbers[i]);
    if (error != std::errc() || next == at) return false;
    at = next;
  }
  return at == end;
}

Parameter NumberOf(std::string_view sql, const Token& token, bool negated) {
  Parameter parameter;
  const char* const end = token.text.data() + token.text.size();
  const auto whole = std::from_chars(token.text.data(), end, parameter.integer);
  if (whole.ec == std::errc() && whole.ptr == end) {
    if (negated) parameter.integer = -parameter.integer;
    return parameter;
  }
  parameter = {ParameterKind::Number, 0, 0, {}};
  const auto result = std::from_chars(token.text.data(), end, parameter.number);
  if (result.ec != std::errc()) FailAt(sql, token.offset, "the number is out of range");
  if (negated) parameter.number = -parameter.number;
  return parameter;
}

}  // namespace

std::string IsoFromLiteral(std::string_view literal) {
  const std::string_view text = Trim(literal);
  const std::size_t blank = text.find(' ');
  const std::string_view day = text.substr(0, blank);
  std::array<int, 3> parts{};
  std::optional<Date> date;
  if (ReadNumbers(day, '/', parts)) {
    date = Date::FromYmd(parts[2], parts[0], parts[1]);
  } else if (ReadNumbers(day, '-', parts)) {
    date = Date::FromYmd(parts[0], parts[1], parts[2]);
  }
  if (!date) return {};
  DateTime moment{*date, 0};
  if (blank != std::string_view::npos) {
    const std::string_view time = Trim(text.substr(blank));
    std::array<int, 3> clock{};
    std::array<int, 2> minutes{};
    if (ReadNumbers(time, ':', minutes)) {
      clock = {minutes[0], minutes[1], 0};
    } else if (!ReadNumbers(time, ':', clock)) {
      return {};
    }
    if (clock[0] < 0 || clock[0] > 23 || clock[1] < 0 || clock[1] > 59 || clock[2] < 0 ||
        clock[2] > 59) {
      return {};
    }
    moment.seconds = clock[0] * 3600 + clock[1] * 60 + clock[2];
  }
  return moment.ToIso();
}

Parameter ReadLiteral(std::string_view sql, const Token& token, bool negated,
                      std::deque<std::string>& texts) {
  if (token.kind == TokenKind::Number) return NumberOf(sql, token, negated);
  if (token.kind == TokenKind::Date) {
    std::string iso = IsoFromLiteral(token.text);
    if (iso.empty()) FailAt(sql, token.offset, "there is no such date");
    return {ParameterKind::Date, 0, 0, texts.emplace_back(std::move(iso))};
  }
  if (!token.hasQuotes) return {ParameterKind::Text, 0, 0, token.text};
  return {ParameterKind::Text, 0, 0, texts.emplace_back(Unquote(token))};
}

}  // namespace corvanta::jet
