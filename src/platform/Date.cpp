#include "platform/Date.h"

#include "platform/TextCase.h"

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <stdexcept>

namespace corvanta::inline platform {
namespace {

namespace chr = std::chrono;

chr::year_month_day ToYmd(std::int32_t days) {
  return chr::year_month_day(chr::sys_days(chr::days(days)));
}

// Digits only, exactly as many as the text has; nullopt otherwise.
std::optional<int> ReadDigits(std::string_view text) {
  if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;
  int value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

int MonthIndex(Date date) {
  return date.Year() * 12 + date.Month() - 1;
}

// Days since the last `firstWeekDay` on or before a fixed origin, divided into weeks.
int WeekIndex(Date date, int firstWeekDay) {
  // 1970-01-01 was a Thursday; the shift makes each week begin on the wanted day.
  const int shifted = date.Serial() + 4 - firstWeekDay;
  return shifted >= 0 ? shifted / 7 : -((6 - shifted) / 7);
}

}  // namespace

std::optional<Date> Date::FromYmd(int year, int month, int day) {
  if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) {
    return std::nullopt;
  }
  const chr::year_month_day ymd{chr::year(year), chr::month(static_cast<unsigned>(month)),
                                chr::day(static_cast<unsigned>(day))};
  if (!ymd.ok()) return std::nullopt;
  return Date(static_cast<std::int32_t>(chr::sys_days(ymd).time_since_epoch().count()));
}

std::optional<Date> Date::FromIso(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = ReadDigits(text.substr(0, 4));
  const auto month = ReadDigits(text.substr(5, 2));
  const auto day = ReadDigits(text.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  return FromYmd(*year, *month, *day);
}

int Date::Year() const {
  return static_cast<int>(ToYmd(days_).year());
}
int Date::Month() const {
  return static_cast<int>(static_cast<unsigned>(ToYmd(days_).month()));
}
int Date::Day() const {
  return static_cast<int>(static_cast<unsigned>(ToYmd(days_).day()));
}

int Date::WeekDay() const {
  return static_cast<int>(chr::weekday(chr::sys_days(chr::days(days_))).iso_encoding());
}

std::string Date::ToIso() const {
  const auto ymd = ToYmd(days_);
  return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(ymd.year()),
                     static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()));
}

Date Date::AddMonths(int months) const {
  const auto ymd = ToYmd(days_);
  const auto target = chr::year_month(ymd.year(), ymd.month()) + chr::months(months);
  const chr::day last = (target / chr::last).day();
  const auto landed = target / (ymd.day() < last ? ymd.day() : last);
  return Date(static_cast<std::int32_t>(chr::sys_days(landed).time_since_epoch().count()));
}

std::optional<DateTime> DateTime::FromIso(std::string_view text) {
  const auto date = Date::FromIso(text.substr(0, 10));
  if (!date) return std::nullopt;
  if (text.size() == 10) return DateTime{*date, 0};
  if (text.size() != 19 || (text[10] != 'T' && text[10] != ' ') || text[13] != ':' ||
      text[16] != ':') {
    return std::nullopt;
  }
  const auto hour = ReadDigits(text.substr(11, 2));
  const auto minute = ReadDigits(text.substr(14, 2));
  const auto second = ReadDigits(text.substr(17, 2));
  if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) {
    return std::nullopt;
  }
  return DateTime{*date, *hour * 3600 + *minute * 60 + *second};
}

std::string DateTime::ToIso() const {
  if (seconds == 0) return date.ToIso();
  return fmt::format("{}T{:02}:{:02}:{:02}", date.ToIso(), seconds / 3600, seconds / 60 % 60,
                     seconds % 60);
}

Date DateAdd(std::string_view interval, int count, Date from) {
  const std::string code = ToLower(interval);
  if (code == "d") return from.AddDays(count);
  if (code == "ww") return from.AddDays(7 * count);
  if (code == "m") return from.AddMonths(count);
  if (code == "q") return from.AddMonths(3 * count);
  if (code == "yyyy") return from.AddMonths(12 * count);
  throw std::invalid_argument("DateAdd: unknown interval " + code);
}

int DateDiff(std::string_view interval, Date from, Date to, int firstWeekDay) {
  const std::string code = ToLower(interval);
  if (code == "d") return to.Serial() - from.Serial();
  if (code == "w") return (to.Serial() - from.Serial()) / 7;
  if (code == "ww") return WeekIndex(to, firstWeekDay) - WeekIndex(from, firstWeekDay);
  if (code == "m") return MonthIndex(to) - MonthIndex(from);
  if (code == "q") return MonthIndex(to) / 3 - MonthIndex(from) / 3;
  if (code == "yyyy") return to.Year() - from.Year();
  throw std::invalid_argument("DateDiff: unknown interval " + code);
}

}  // namespace corvanta::inline platform
