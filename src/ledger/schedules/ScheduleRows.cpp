#include "ledger/schedules/ScheduleRows.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta::inline ledger {
void PostedRows::Add(std::int64_t accountId, std::optional<Date> due) {
  if (!due) return;  // the other half of a transfer
  const auto place = std::ranges::upper_bound(rows_, *due, {}, &Row::due);
  rows_.insert(place, {*due, accountId});
}

bool PostedRows::Has(Date due) const {
  return std::ranges::binary_search(rows_, due, {}, &Row::due);
}

std::optional<Date> PostedRows::FirstAfter(Date day) const {
  const auto place = std::ranges::upper_bound(rows_, day, {}, &Row::due);
  return place == rows_.end() ? std::nullopt : std::optional(place->due);
}

std::optional<Date> PostedRows::Last() const {
  return rows_.empty() ? std::nullopt : std::optional(rows_.back().due);
}

int PostedRows::CountFrom(Date due) const {
  return static_cast<int>(rows_.end() - std::ranges::lower_bound(rows_, due, {}, &Row::due));
}

int PostedRows::CountFor(const ScheduleRecord& schedule) const {
  return static_cast<int>(std::ranges::count_if(rows_, [&](const Row& row) {
    return row.accountId == schedule.accountId && row.due >= schedule.dateFrom;
  }));
}

PostedRows PostedOf(Connection& store, std::int64_t scheduleId) {
  PostedRows posted;
  if (scheduleId == 0) return posted;
  Recordset rows = store.OpenRecordset(
      "Select AccountID, ScheduleDate from tblTransactions Where NOT (AllocatedItem <> 0) AND "
      "BankSch = " +
      SqlNumber(scheduleId) + " Order by ScheduleDate");
  for (; !rows.Eof(); rows.MoveNext()) posted.Add(rows.Int(0), rows.Day(1));
  return posted;
}

PostedBySchedule PostedOfAll(Connection& store) {
  PostedBySchedule all;
  // The keys of schedules are above 0, and only in this form the engine takes their index: not that
  // of split lines, where nearly every row stands for no line.
  Recordset rows = store.OpenRecordset(
      "Select BankSch, AccountID, ScheduleDate from tblTransactions "
      "Where NOT (AllocatedItem <> 0) AND BankSch > 0 Order by BankSch, ScheduleDate");
  for (; !rows.Eof(); rows.MoveNext()) all[rows.Int(0)].Add(rows.Int(1), rows.Day(2));
  return all;
}

SchedulePlan PlanOf(const ScheduleDetails& schedule) {
  return {schedule.dateFrom, schedule.noTimes, schedule.period, schedule.days};
}

bool HasOpenAccounts(const ScheduleDetails& schedule) {
  // A file that another program wrote may name an account that is gone.
  if (schedule.account.empty() || schedule.accountClosed) return false;
  if (!schedule.IsTransfer()) return true;
  return !schedule.transferAccount.empty() && !schedule.transferAccountClosed;
}

std::string HindranceOf(const ScheduleDetails& schedule) {
  if (schedule.isFinished) return {};
  if (schedule.accountClosed) return "the account is closed";
  if (schedule.transferAccountClosed) return "the receiving account is closed";
  if (!HasOpenAccounts(schedule)) return "the account is gone";
  const bool waits = schedule.nextDue && schedule.WaitsForRate(*schedule.nextDue);
  return waits ? "waits for an exchange rate" : "";
}

bool IsFinished(const ScheduleDetails& schedule) {
  if (schedule.noTimes < 0) return true;
  const int payments = PlanOf(schedule).Payments();
  return payments > 0 && schedule.posted >= payments;
}

std::vector<Date> PaymentsUntil(const ScheduleDetails& schedule, Date last) {
  const auto step = PlanOf(schedule).Step();
  if (!step || schedule.noTimes < 0) return {};
  const auto payments = static_cast<std::size_t>(PlanOf(schedule).Payments());
  std::vector<Date> dates;
  const Date end = std::min(last, Date::Last());
  for (Date day = schedule.dateFrom; day <= end; day = step->After(day)) {
    if (payments > 0 && dates.size() == payments) break;
    dates.push_back(day);
  }
  return dates;
}

std::vector<Date> PaymentsBookedUntil(const ScheduleDetails& schedule, Date last) {
  constexpr int kWeekend = 2;
  std::vector<Date> dates = PaymentsUntil(schedule, last.AddDays(kWeekend));
  while (!dates.empty() && schedule.days.BookedOn(dates.back()) > last) dates.pop_back();
  return dates;
}

}  // namespace corvanta::inline ledger
