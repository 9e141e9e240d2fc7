#include "platform/Date.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace corvanta {
namespace {

Date Day(const char* iso) {
  return Date::FromIso(iso).value();
}

TEST(Date, ReadsOnlyDaysThatExist) {
  for (const char* good : {"2026-11-21", "2024-02-29", "2000-02-29", "0001-01-01", "9999-12-31"}) {
    ASSERT_TRUE(Date::FromIso(good)) << good;
    EXPECT_EQ(Date::FromIso(good)->ToIso(), good);
  }
  for (const char* bad :
       {"2023-02-29", "1900-02-29", "2026-13-01", "2026-00-10", "2026-04-31", "0000-01-01",
        "2026-1-1", "2026-11-21 ", "+026-11-21", "2026/11/21", ""}) {
    EXPECT_FALSE(Date::FromIso(bad)) << bad;
  }
}

TEST(Date, KnowsSerialAndWeekDay) {
  EXPECT_EQ(Day("1970-01-01").Serial(), 0);
  EXPECT_EQ(Day("1969-12-31").Serial(), -1);
  EXPECT_EQ(Day("2026-11-21").WeekDay(), 6);
  EXPECT_EQ(Day("2026-11-22").WeekDay(), 7);
  EXPECT_EQ(Day("1899-12-25").WeekDay(), 1);
  // Every day of four centuries comes back from its parts.
  for (Date date = Day("1800-01-01"); date < Day("2200-01-01"); date = date.AddDays(1)) {
    ASSERT_EQ(Date::FromYmd(date.Year(), date.Month(), date.Day()), date) << date.ToIso();
  }
}

TEST(DateTime, ReadsAndWritesBothForms) {
  EXPECT_EQ(DateTime::FromIso("2026-11-21")->ToIso(), "2026-11-21");
  EXPECT_EQ(DateTime::FromIso("2026-11-21 09:08:07")->ToIso(), "2026-11-21T09:08:07");
  EXPECT_EQ(DateTime::FromIso("2026-11-21T23:59:59")->seconds, 86399);
  for (const char* bad : {"2026-11-21T24:00:00", "2026-11-21T10:60:00", "2026-11-21T10:00",
                          "2026-11-21x10:00:00", "2026-02-30T10:00:00"}) {
    EXPECT_FALSE(DateTime::FromIso(bad)) << bad;
  }
}

TEST(DateAdd, StepsByInterval) {
  struct Row {
    const char* interval;
    int count;
    const char* from;
    const char* expected;
  };
  for (const Row& row : {Row{"d", 1, "2024-02-28", "2024-02-29"},
                         {"d", -1, "2026-01-01", "2025-12-31"},
                         {"ww", 2, "2026-12-25", "2027-01-08"},
                         {"m", 1, "2026-01-31", "2026-02-28"},
                         {"m", 1, "2024-01-31", "2024-02-29"},
                         {"M", 13, "2026-01-15", "2027-02-15"},
                         {"m", -3, "2026-05-31", "2026-02-28"},
                         {"m", -12, "2026-01-31", "2025-01-31"},
                         {"q", 1, "2026-11-30", "2027-02-28"},
                         {"yyyy", 1, "2024-02-29", "2025-02-28"},
                         {"yyyy", 4, "2024-02-29", "2028-02-29"},
                         {"yyyy", 0, "2026-11-21", "2026-11-21"}}) {
    EXPECT_EQ(DateAdd(row.interval, row.count, Day(row.from)).ToIso(), row.expected)
        << row.interval << row.count << " from " << row.from;
  }
  EXPECT_THROW((void)DateAdd("x", 1, Date()), std::invalid_argument);
}

TEST(DateDiff, CountsBoundaries) {
  struct Row {
    const char* interval;
    const char* from;
    const char* to;
    int expected;
  };
  for (const Row& row : {Row{"d", "2024-02-28", "2024-03-01", 2},
                         {"m", "2026-01-31", "2026-02-01", 1},
                         {"m", "2026-02-01", "2026-01-31", -1},
                         {"q", "2026-03-31", "2026-04-01", 1},
                         {"yyyy", "2025-12-31", "2026-01-01", 1},
                         {"yyyy", "2026-01-01", "2026-12-31", 0},
                         {"w", "2026-11-21", "2026-11-27", 0},
                         {"w", "2026-11-21", "2026-11-28", 1}}) {
    EXPECT_EQ(DateDiff(row.interval, Day(row.from), Day(row.to)), row.expected)
        << row.interval << " " << row.from << " " << row.to;
  }
  EXPECT_THROW((void)DateDiff("", Date(), Date()), std::invalid_argument);
}

TEST(DateDiff, WeeksBeginOnTheWantedDay) {
  const Date saturday = Day("2026-11-21");
  EXPECT_EQ(DateDiff("ww", saturday, Day("2026-11-22")), 1);
  EXPECT_EQ(DateDiff("ww", saturday, Day("2026-11-22"), 1), 0);
  EXPECT_EQ(DateDiff("ww", saturday, Day("2026-11-23"), 1), 1);
  EXPECT_EQ(DateDiff("ww", Day("2026-11-23"), saturday, 1), -1);
  // Against counting the days one by one, across the origin of the serial numbers.
  for (int firstDay = 1; firstDay <= 7; ++firstDay) {
    const Date from = Day("1969-12-20");
    int boundaries = 0;
    for (Date date = from; date < Day("1970-01-20"); date = date.AddDays(1)) {
      if (date != from && date.WeekDay() == firstDay) ++boundaries;
      ASSERT_EQ(DateDiff("ww", from, date, firstDay), boundaries) << date.ToIso() << firstDay;
    }
  }
}

}  // namespace
}  // namespace corvanta
