// When the payments of a schedule are due.
#pragma once

#include "ledger/schedules/DayRule.h"
#include "platform/Date.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline ledger {

// A period code such as "m", "2ww" or "1d", taken apart.
struct PeriodStep {
  int multiplier = 1;
  std::string interval;  // as DateAdd takes it
  bool isOnce = false;
  bool isMonthEnd = false;  // steps from one month's last day to another's

  // nullopt for a code that names no interval.
  [[nodiscard]] static std::optional<PeriodStep> FromCode(std::string_view code);
  // The next due date.
  [[nodiscard]] Date After(Date day) const;
  // The due date `count` steps before that one.
  [[nodiscard]] Date Before(Date day, int count) const;
  // Whether it counts in months.
  [[nodiscard]] bool IsMonthly() const;
  // The first day of the day's week, month, quarter or year, as the interval counts.
  [[nodiscard]] Date StartOf(Date day) const;
};

// What decides the due dates of a schedule.
struct SchedulePlan {
  Date from;
  int noTimes = 0;     // 0 without end; the sign does not count
  std::string period;  // the code
  DayRule days{};

  // How many payments there are; 0 without end.
  [[nodiscard]] int Payments() const;
  // nullopt for an unknown period code.
  [[nodiscard]] std::optional<PeriodStep> Step() const;
  // With the start on the day that its rule asks for.
  [[nodiscard]] SchedulePlan Settled() const;
  // Whether both have their payments on the same days, however many there are.
  [[nodiscard]] bool HasDatesOf(const SchedulePlan& other) const;
};

// All payments of a plan that ends, whenever they are due. Of one without end those up to about
// `end` or a year after today, whichever is later: as many as interval boundaries lie between the
// start and that day, so a payment on that very day is not among them. Each date is stepped from
// the one before it. Empty for an unknown period code.
[[nodiscard]] std::vector<Date> ScheduleDates(const SchedulePlan& plan, Date today,
                                              std::optional<Date> end);

// The plan's first `count` dates, fewer where it has fewer: a look ahead for a person.
[[nodiscard]] std::vector<Date> FirstScheduleDates(const SchedulePlan& plan, std::size_t count);

}  // namespace corvanta::inline ledger
