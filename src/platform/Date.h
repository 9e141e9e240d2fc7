// Calendar dates: a day without a time of day, a moment with one, and the arithmetic on them.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {

// A day of the proleptic Gregorian calendar, years 1 to 9999.
class Date {
 public:
  constexpr Date() = default;  // 1970-01-01

  // The day of this year, month (1 to 12) and day (1 to 31); nullopt when there is no such day.
  [[nodiscard]] static std::optional<Date> FromYmd(int year, int month, int day);
  // "YYYY-MM-DD", exactly; nullopt for anything else.
  [[nodiscard]] static std::optional<Date> FromIso(std::string_view text);
  // Days since 1970-01-01, negative before it.
  [[nodiscard]] static constexpr Date FromSerial(std::int32_t days) { return Date(days); }

  // The ends of the calendar: what is worked out may lie beyond, no day that is stored or shown
  // does.
  [[nodiscard]] static constexpr Date First() { return Date(-719162); }  // 0001-01-01
  [[nodiscard]] static constexpr Date Last() { return Date(2932896); }   // 9999-12-31

  [[nodiscard]] constexpr std::int32_t Serial() const { return days_; }
  [[nodiscard]] int Year() const;
  [[nodiscard]] int Month() const;
  [[nodiscard]] int Day() const;
  // 1 Monday to 7 Sunday.
  [[nodiscard]] int WeekDay() const;
  [[nodiscard]] std::string ToIso() const;

  [[nodiscard]] constexpr Date AddDays(std::int32_t days) const { return Date(days_ + days); }
  // The same day of the month that many months on, or the month's last day where it has no such
  // day.
  [[nodiscard]] Date AddMonths(int months) const;

  constexpr auto operator<=>(const Date&) const = default;

 private:
  explicit constexpr Date(std::int32_t days) : days_(days) {}
  std::int32_t days_ = 0;
};

// A moment of local time, to the second.
struct DateTime {
  Date date;
  std::int32_t seconds = 0;  // since midnight, 0 to 86399

  // "YYYY-MM-DD" or "YYYY-MM-DDTHH:MM:SS" (a blank may stand for the T); nullopt otherwise.
  [[nodiscard]] static std::optional<DateTime> FromIso(std::string_view text);
  // "YYYY-MM-DD" at midnight, otherwise "YYYY-MM-DDTHH:MM:SS".
  [[nodiscard]] std::string ToIso() const;
  constexpr auto operator<=>(const DateTime&) const = default;
};

// The date `count` intervals after `from`. Interval codes: "d" day, "ww" week, "m" month,
// "q" quarter, "yyyy" year (letters in any case). Month steps keep the day where the month has it.
// Throws std::invalid_argument for another code.
[[nodiscard]] Date DateAdd(std::string_view interval, int count, Date from);

// The number of interval boundaries between two dates, negative when `to` lies before `from`.
// Weeks begin on `firstWeekDay` (1 Monday to 7 Sunday). Codes as in DateAdd, and "w" for whole
// spans of seven days. Throws std::invalid_argument for another code.
[[nodiscard]] int DateDiff(std::string_view interval, Date from, Date to, int firstWeekDay = 7);

}  // namespace corvanta::inline platform
