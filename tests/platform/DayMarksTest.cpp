#include "platform/DayMarks.h"

#include <gtest/gtest.h>

#include <string>

namespace corvanta {
namespace {

std::string Marks(const char* first, const char* last, std::size_t most) {
  std::string marks;
  for (const Date& day : DayMarks(*Date::FromIso(first), *Date::FromIso(last), most)) {
    marks += (marks.empty() ? "" : " ") + day.ToIso();
  }
  return marks;
}

TEST(DayMarks, MarksAreDaysThatAPersonCountsWith) {
  EXPECT_EQ(Marks("2026-11-01", "2026-11-03", 3), "2026-11-01 2026-11-02 2026-11-03");
  EXPECT_EQ(Marks("2026-11-01", "2026-11-07", 3), "2026-11-01 2026-11-04 2026-11-07");
  EXPECT_EQ(Marks("2026-11-01", "2026-11-07", 4), "2026-11-01 2026-11-03 2026-11-05 2026-11-07");
  EXPECT_EQ(Marks("2026-11-03", "2026-11-24", 4), "2026-11-03 2026-11-10 2026-11-17 2026-11-24");
  EXPECT_EQ(Marks("2026-11-23", "2027-02-22", 6), "2026-12-01 2027-01-01 2027-02-01");
  EXPECT_EQ(Marks("2025-12-01", "2026-11-21", 5), "2026-01-01 2026-04-01 2026-07-01 2026-10-01");
  EXPECT_EQ(Marks("2023-12-01", "2026-11-21", 3), "2024-01-01 2025-01-01 2026-01-01");
  EXPECT_EQ(Marks("1991-05-05", "2026-11-21", 4), "2000-01-01 2010-01-01 2020-01-01");
}

TEST(DayMarks, ThereAreNeverMoreThanHaveRoomAndNeverNone) {
  const Date first = *Date::FromIso("2024-02-29");
  for (const int length : {0, 1, 6, 30, 31, 45, 365, 1000, 40000}) {
    for (const std::size_t most : {1U, 2U, 5U, 12U}) {
      const Date last = first.AddDays(length);
      const std::vector<Date> marks = DayMarks(first, last, most);
      EXPECT_GE(marks.size(), 1U) << length;
      EXPECT_LE(marks.size(), most) << length;
      EXPECT_TRUE(marks.front() >= first && marks.back() <= last) << length;
    }
  }
}

}  // namespace
}  // namespace corvanta
