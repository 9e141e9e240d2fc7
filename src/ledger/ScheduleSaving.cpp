// Writing schedules and their split lines.
#include "ledger/ScheduleChange.h"
#include "ledger/ScheduleDays.h"
#include "ledger/ScheduleForecasts.h"
#include "ledger/ScheduleRows.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <optional>

namespace corvanta {
namespace {

std::string PeriodCode(Connection& store, std::int64_t periodId) {
  return std::string(
      store.QueryValue("Select [Period] from tblPeriods Where PeriodID = " + SqlNumber(periodId))
          .Text());
}

SchedulePlan PlanOf(Connection& store, const ScheduleRecord& record) {
  return {record.dateFrom, record.noTimes, PeriodCode(store, record.periodId), record.days};
}

// What hangs together in a schedule.
void SettlePlan(Connection& store, ScheduleRecord& record) {
  if (record.transferAccountId == record.accountId) record.transferAccountId = 0;
  const SchedulePlan plan = PlanOf(store, record);
  const auto step = plan.Step();
  if (step && step->isOnce && record.noTimes >= 0) record.noTimes = 1;
  record.days.isMonthEnd = step && step->isMonthEnd;
  record.dateFrom = plan.Settled().from;
}

}  // namespace

std::int64_t clsCorvanta::SaveSchedule(ScheduleRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Schedule");
  Transaction all = connection_.Begin();
  std::optional<ScheduleDetails> former;
  if (record.scheduleId != 0) {
    former = ReadSchedule(record.scheduleId);
    if (!former) return 0;
    record.allocatedItem = former->allocatedItem;
  }
  if (record.allocatedItem != 0) {
    if (!SaveScheduleLine(record)) return 0;
  } else {
    SaveWholeSchedule(record, former);
  }
  all.Commit();
  return record.scheduleId;
}

bool clsCorvanta::SaveScheduleLine(ScheduleRecord& record) {
  const auto parent = ReadSchedule(record.allocatedItem);
  if (!TakeFromParent(record)) return false;
  ScheduleForecasts forecasts(*this, *parent, platform_);
  record.scheduleId = WriteSchedule(record);
  SumScheduleLines(record.allocatedItem);
  forecasts.Follow();
  return true;
}

void clsCorvanta::SaveWholeSchedule(ScheduleRecord& record,
                                    const std::optional<ScheduleDetails>& former) {
  SettlePlan(connection_, record);
  std::optional<ScheduleForecasts> forecasts;
  PlanChange change;
  if (former && record != static_cast<const ScheduleRecord&>(*former)) {
    forecasts.emplace(*this, *former, platform_);
    change = ChangeOf(*former, record);
    record.dateFrom = change.plan.from;
    record.noTimes = change.plan.noTimes;
  }
  record.scheduleId = WriteSchedule(record);
  WriteDayRule(connection_, record.scheduleId, record.days);
  ScheduleLinesFollow(record);
  if (forecasts) forecasts->Follow(change);
}

PlanChange clsCorvanta::ChangeOf(const ScheduleDetails& former, const ScheduleRecord& record) {
  return ChangePlan(PlanOf(former), PlanOf(connection_, record),
                    PostedOf(connection_, former.scheduleId), platform_.clock.Today());
}

SchedulePlan clsCorvanta::PlanAfterSaving(ScheduleRecord record) {
  const auto former = ReadSchedule(record.scheduleId);
  SettlePlan(connection_, record);
  return former ? ChangeOf(*former, record).plan : PlanOf(connection_, record);
}

// A line belongs to an ordinary schedule; false when its parent is none.
bool clsCorvanta::TakeFromParent(ScheduleRecord& line) {
  const auto parent = ReadSchedule(line.allocatedItem);
  if (!parent || parent->allocatedItem != 0 || parent->IsTransfer()) return false;
  line.accountId = parent->accountId;
  line.periodId = parent->periodId;
  line.dateFrom = parent->dateFrom;
  line.noTimes = parent->noTimes;
  line.addToAccount = parent->addToAccount;
  if (line.paymentId == 0) line.paymentId = parent->paymentId;
  if (line.payeeId == 0) line.payeeId = parent->payeeId;
  line.transferAccountId = 0;
  return true;
}

std::int64_t clsCorvanta::WriteSchedule(const ScheduleRecord& record) {
  const bool isNew = record.scheduleId == 0;
  Recordset row = connection_.OpenRecordset(
      isNew ? "tblSchedule"
            : "Select * from tblSchedule Where ScheduleID = " + SqlNumber(record.scheduleId));
  if (isNew) {
    row.AddNew();
    row.Set("AllocatedItem", record.allocatedItem);
  }
  row.Set("AccountID", record.accountId);
  row.Set("CategoryID", record.categoryId);
  row.Set("PaymentID", record.paymentId);
  row.Set("PayeeID", record.payeeId);
  row.Set("PeriodID", record.periodId);
  row.Set("TfrAccountID", record.transferAccountId);
  row.Set("Amount", record.amount);
  row.Set("Reference", record.reference);
  row.Set("Description", record.description);
  row.Set("DateFrom", record.dateFrom);
  row.Set("NoTimes", record.noTimes);
  row.Set("AddToAccount", static_cast<int>(record.addToAccount));
  row.Update();
  return row.Key();
}

void clsCorvanta::ScheduleLinesFollow(const ScheduleRecord& parent) {
  const std::string lines = " WHERE AllocatedItem = " + SqlNumber(parent.scheduleId);
  if (parent.transferAccountId != 0) {
    connection_.Execute("Delete From tblSchedule" + lines);
    return;
  }
  if (!SumScheduleLines(parent.scheduleId)) return;
  connection_.Execute(
      "UPDATE tblSchedule SET AccountID = " + SqlNumber(parent.accountId) +
      ", PeriodID = " + SqlNumber(parent.periodId) + ", [DateFrom] = " + SqlDate(parent.dateFrom) +
      ", NoTimes = " + std::to_string(parent.noTimes) +
      ", AddToAccount = " + std::to_string(static_cast<int>(parent.addToAccount)) + lines);
}

}  // namespace corvanta
