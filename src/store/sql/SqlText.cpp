#include "store/sql/SqlText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace corvanta::inline sql {

std::string SqlText(std::string_view text) {
  std::string quoted;
  quoted.reserve(text.size() + 2);
  quoted += '\'';
  for (const char c : text) {
    if (c == '\'') quoted += '\'';
    quoted += c;
  }
  quoted += '\'';
  return quoted;
}

std::string SqlDate(Date date) {
  return SqlDate(DateTime{date, 0});
}

std::string SqlDate(DateTime moment) {
  char text[64];
  // Nothing that is stored lies beyond the calendar's ends, so they compare as what lies there.
  const Date date = std::clamp(moment.date, Date::First(), Date::Last());
  int length =
      std::snprintf(text, sizeof text, "#%02d/%02d/%04d", date.Month(), date.Day(), date.Year());
  if (moment.seconds != 0) {
    length += std::snprintf(text + length, sizeof text - static_cast<std::size_t>(length),
                            " %02d:%02d:%02d", moment.seconds / 3600, moment.seconds / 60 % 60,
                            moment.seconds % 60);
  }
  return std::string(text, static_cast<std::size_t>(length)) + "#";
}

std::string SqlEndOf(Date day) {
  constexpr int kLastSecond = 86399;
  return SqlDate(DateTime{day, kLastSecond});
}

std::string SqlNumber(double number) {
  if (!std::isfinite(number)) throw std::invalid_argument("not a finite number");
  if (number == 0) return "0";  // also for minus zero
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, number).ptr;
  return std::string(text, end);
}

std::string SqlNumber(std::int64_t number) {
  return std::to_string(number);
}

}  // namespace corvanta::inline sql
