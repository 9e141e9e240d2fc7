// The due dates of schedules beside a calendar that counts day by day.
#include "ledger/schedules/ScheduleDates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace corvanta {
namespace {

// A day as a person counts it.
struct Day {
  int year = 0;
  int month = 0;
  int day = 0;

  [[nodiscard]] static int LengthOf(int year, int month) {
    const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    if (month == 2) return isLeap ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
  }
  void Next() {
    if (++day <= LengthOf(year, month)) return;
    day = 1;
    if (++month <= 12) return;
    month = 1;
    ++year;
  }
  void NextDays(int count) {
    for (int i = 0; i < count; ++i) Next();
  }
  void NextMonths(int count) {
    for (int i = 0; i < count; ++i) {
      year += month == 12 ? 1 : 0;
      month = month % 12 + 1;
    }
    day = std::min(day, LengthOf(year, month));
  }
  [[nodiscard]] Date AsDate() const { return *Date::FromYmd(year, month, day); }
  auto operator<=>(const Day&) const = default;
};

struct Kind {
  const char* code;
  int days = 0;    // in a step
  int months = 0;  // in a step
};
constexpr Kind kKinds[] = {{"1d", 1, 0},   {"d", 1, 0},  {"ww", 7, 0},   {"2ww", 14, 0},
                           {"4ww", 28, 0}, {"m", 0, 1},  {"2m", 0, 2},   {"q", 0, 3},
                           {"2q", 0, 6},   {"3q", 0, 9}, {"yyyy", 0, 12}};
// 21 November 2026 is a Saturday, so the 23rd a Monday.
constexpr Day kStarts[] = {{2024, 2, 29}, {2023, 1, 31},  {2025, 12, 31},
                           {2026, 2, 28}, {2024, 12, 30}, {2026, 11, 23}};

void Step(const Kind& kind, Day& day) {
  day.NextDays(kind.days);
  day.NextMonths(kind.months);
}

// How often a new day, week, month, quarter or year begins on the way.
int Boundaries(const Kind& kind, Day from, const Day& to) {
  int weekDay = from.AsDate().WeekDay();
  int count = 0;
  while (from < to) {
    from.Next();
    weekDay = weekDay % 7 + 1;
    const bool isFirst = from.day == 1;
    if (kind.days == 1) ++count;
    if (kind.days >= 7) count += weekDay == 1 ? 1 : 0;
    if (kind.months == 1 || kind.months == 2) count += isFirst ? 1 : 0;
    if (kind.months == 3 || kind.months == 6 || kind.months == 9) {
      count += isFirst && from.month % 3 == 1 ? 1 : 0;
    }
    if (kind.months == 12) count += isFirst && from.month == 1 ? 1 : 0;
  }
  return count;
}

std::vector<Date> Expected(const Kind& kind, Day from, int count) {
  std::vector<Date> dates;
  for (int i = 0; i < count; ++i, Step(kind, from)) dates.push_back(from.AsDate());
  return dates;
}

TEST(ScheduleDates, ANumberOfPaymentsOverThirtyYears) {
  for (const Kind& kind : kKinds) {
    for (const Day& start : kStarts) {
      SCOPED_TRACE(std::string(kind.code) + " from " + start.AsDate().ToIso());
      const int count = 30 * 366 / (kind.days + 30 * kind.months);
      const SchedulePlan plan{start.AsDate(), count, kind.code};
      // Whatever the end is.
      EXPECT_EQ(ScheduleDates(plan, start.AsDate(), start.AsDate()), Expected(kind, start, count));
      EXPECT_EQ(FirstScheduleDates(plan, 9), Expected(kind, start, 9));
    }
  }
}

TEST(ScheduleDates, WithoutEndUntilThirtyYearsOn) {
  constexpr std::tuple<const char*, int> kMultipliers[] = {
      {"2ww", 2}, {"4ww", 4}, {"2m", 2}, {"2q", 2}, {"3q", 3}};
  for (const Kind& kind : kKinds) {
    if (std::string(kind.code) == "1d") continue;
    int multiplier = 1;
    for (const auto& [code, number] : kMultipliers) {
      if (std::string(kind.code) == code) multiplier = number;
    }
    for (const Day& start : kStarts) {
      SCOPED_TRACE(std::string(kind.code) + " from " + start.AsDate().ToIso());
      const Day end{start.year + 30, 11, 23};
      const int count = static_cast<int>(
          std::round(static_cast<double>(Boundaries(kind, start, end)) / multiplier));
      EXPECT_EQ(ScheduleDates({start.AsDate(), 0, kind.code}, start.AsDate(), end.AsDate()),
                Expected(kind, start, count));
    }
  }
}

std::vector<std::string> Texts(const std::vector<Date>& dates) {
  std::vector<std::string> texts;
  for (const Date date : dates) texts.push_back(date.ToIso());
  return texts;
}

TEST(ScheduleDates, OfPlansAtTheEdges) {
  const auto day = [](const char* text) { return *Date::FromIso(text); };
  const Date today = day("2026-11-21");
  using Dates = std::vector<std::string>;
  // Two months each, the end not among them.
  EXPECT_EQ(Texts(ScheduleDates({day("2030-01-01"), 0, "2m"}, today, day("2030-07-01"))),
            (Dates{"2030-01-01", "2030-03-01", "2030-05-01"}));
  // Once, with the number and without it.
  EXPECT_EQ(Texts(ScheduleDates({today, 0, "1d"}, today, {})), (Dates{"2026-11-21"}));
  EXPECT_EQ(Texts(ScheduleDates({today, 1, "1D"}, today, {})), (Dates{"2026-11-21"}));
  // The sign of the number does not count.
  EXPECT_EQ(Texts(ScheduleDates({today, -2, "q"}, today, {})), (Dates{"2026-11-21", "2027-02-21"}));
  // An end within the year is too early to count.
  EXPECT_EQ(ScheduleDates({today, 0, "m"}, today, today.AddDays(3)).size(), 12U);
  EXPECT_EQ(ScheduleDates({today, 0, "m"}, today, {}).size(), 12U);
  // A start behind the end is due once.
  EXPECT_EQ(Texts(ScheduleDates({day("2035-03-31"), 0, "m"}, today, {})), (Dates{"2035-03-31"}));
  // A step goes from the date before it: the 31st does not come back.
  EXPECT_EQ(Texts(FirstScheduleDates({day("2027-01-31"), 0, "m"}, 3)),
            (Dates{"2027-01-31", "2027-02-28", "2027-03-28"}));
  EXPECT_EQ(Texts(FirstScheduleDates({day("2027-01-31"), 2, "m"}, 3)),
            (Dates{"2027-01-31", "2027-02-28"}));
  // Nothing that is no period, and nothing behind the last year there is.
  for (const char* code : {"", "x", "2", "mm", "m2"}) {
    EXPECT_TRUE(ScheduleDates({today, 3, code}, today, {}).empty()) << code;
  }
  EXPECT_EQ(Texts(ScheduleDates({day("9998-06-01"), 5, "yyyy"}, today, {})),
            (Dates{"9998-06-01", "9999-06-01"}));
}

}  // namespace
}  // namespace corvanta
