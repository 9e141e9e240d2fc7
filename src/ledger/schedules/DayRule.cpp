#include "ledger/schedules/DayRule.h"

namespace corvanta::inline ledger {

Date LastOfMonth(Date day) {
  const Date first = day.AddDays(1 - day.Day());
  return first.AddMonths(1).AddDays(-1);
}

Date DayRule::BookedOn(Date due) const {
  constexpr int kFriday = 5;
  constexpr int kNextMonday = 8;
  const int weekDay = due.WeekDay();
  if (weekDay <= kFriday || weekend == WeekendRule::Stay) return due;
  return due.AddDays((weekend == WeekendRule::Before ? kFriday : kNextMonday) - weekDay);
}

}  // namespace corvanta::inline ledger
