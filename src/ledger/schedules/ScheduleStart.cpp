#include "ledger/schedules/ScheduleStart.h"

#include "ledger/schedules/ScheduleRows.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

#include <string>

namespace corvanta::inline ledger {
namespace {

// What the column holds of a schedule whose payments are all made. 0 would mean payments without
// end, and a number of payments above 0 would come due again when a posted row is deleted.
constexpr int kFinished = -1;

}  // namespace

void MoveStartBehind(Connection& store, const ScheduleDetails& schedule,
                     const std::vector<Date>& passed) {
  const auto step = PlanOf(schedule).Step();
  if (passed.empty() || !step) return;
  const int payments = PlanOf(schedule).Payments();
  const int remaining = payments - static_cast<int>(passed.size());
  const Date next = step->After(passed.back());
  const bool isLast = (payments > 0 && remaining <= 0) || next > Date::Last();
  const Date start = isLast ? passed.back() : next;
  const int number = isLast ? kFinished : payments == 0 ? 0 : remaining;
  store.Execute("UPDATE tblSchedule SET DateFrom = " + SqlDate(start) + ", NoTimes =" +
                std::to_string(number) + " Where ScheduleId = " + SqlNumber(schedule.scheduleId));
}

std::vector<Date> FirstPayments(const ScheduleDetails& schedule,
                                const std::function<bool(Date)>& isMade) {
  std::vector<Date> first;
  const auto step = PlanOf(schedule).Step();
  if (!step) return first;
  const auto payments = static_cast<std::size_t>(PlanOf(schedule).Payments());
  Date day = schedule.dateFrom;
  while (isMade(day) && (payments == 0 || first.size() < payments)) {
    first.push_back(day);
    const Date next = step->After(day);
    if (next <= day) break;
    day = next;
  }
  return first;
}

}  // namespace corvanta::inline ledger
