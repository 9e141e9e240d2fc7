#include "ledger/schedules/ScheduleBook.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleChange.h"
#include "ledger/schedules/ScheduleDays.h"
#include "ledger/schedules/ScheduleForecasts.h"
#include "ledger/schedules/ScheduleRows.h"
#include "ledger/transactions/RowLinks.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvanta::inline ledger {
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

std::int64_t ScheduleBook::SaveSchedule(ScheduleRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Schedule");
  Transaction all = core_.store.Begin();
  std::optional<ScheduleDetails> former;
  if (record.scheduleId != 0) {
    former = ReadSchedule(record.scheduleId);
    if (!former) return 0;
    record.allocatedItem = former->allocatedItem;
  }
  if (record.allocatedItem != 0) {
    if (!SaveScheduleLine(record, former)) return 0;
  } else {
    SaveWholeSchedule(record, former);
  }
  all.Commit();
  return record.scheduleId;
}

void ScheduleBook::FitAmount(ScheduleRecord& record, const std::optional<ScheduleDetails>& former) {
  const bool isAsBefore =
      former && former->accountId == record.accountId && former->amount == record.amount;
  if (!isAsBefore) record.amount = core_.amounts.In(record.accountId, record.amount);
}

bool ScheduleBook::SaveScheduleLine(ScheduleRecord& record,
                                    const std::optional<ScheduleDetails>& former) {
  const auto parent = ReadSchedule(record.allocatedItem);
  if (!InheritFromParent(record)) return false;
  ScheduleForecasts forecasts(ledger_, *parent, core_.platform);
  FitAmount(record, former);
  record.scheduleId = WriteSchedule(record);
  SumScheduleLines(record.allocatedItem);
  forecasts.Follow();
  return true;
}

void ScheduleBook::SaveWholeSchedule(ScheduleRecord& record,
                                     const std::optional<ScheduleDetails>& former) {
  SettlePlan(core_.store, record);
  FitAmount(record, former);
  std::optional<ScheduleForecasts> forecasts;
  PlanChange change;
  if (former && record != static_cast<const ScheduleRecord&>(*former)) {
    forecasts.emplace(ledger_, *former, core_.platform);
    change = ChangeOf(*former, record);
    record.dateFrom = change.plan.from;
    record.noTimes = change.plan.noTimes;
  }
  record.scheduleId = WriteSchedule(record);
  WriteDayRule(core_.store, record.scheduleId, record.days);
  ScheduleLinesFollow(record);
  if (forecasts) forecasts->Follow(change);
}

PlanChange ScheduleBook::ChangeOf(const ScheduleDetails& former, const ScheduleRecord& record) {
  return ChangePlan(PlanOf(former), PlanOf(core_.store, record),
                    PostedOf(core_.store, former.scheduleId), core_.platform.clock.Today());
}

SchedulePlan ScheduleBook::PlanAfterSaving(ScheduleRecord record) {
  const auto former = ReadSchedule(record.scheduleId);
  SettlePlan(core_.store, record);
  return former ? ChangeOf(*former, record).plan : PlanOf(core_.store, record);
}

// A line belongs to an ordinary schedule; false when its parent is none.
bool ScheduleBook::InheritFromParent(ScheduleRecord& line) {
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

std::int64_t ScheduleBook::WriteSchedule(const ScheduleRecord& record) {
  const bool isNew = record.scheduleId == 0;
  Recordset row = core_.store.OpenRecordset(
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

void ScheduleBook::ScheduleLinesFollow(const ScheduleRecord& parent) {
  const std::string lines = " WHERE AllocatedItem = " + SqlNumber(parent.scheduleId);
  if (parent.transferAccountId != 0) {
    core_.store.Execute("Delete From tblSchedule" + lines);
    return;
  }
  PartsInCurrency parts = core_.amounts.PartsIn(parent.accountId);
  for (const ScheduleDetails& line : ScheduleLines(parent.scheduleId)) {
    if (line.accountId == parent.accountId) continue;
    core_.store.Execute("UPDATE tblSchedule SET [Amount] = " + SqlNumber(parts.Next(line.amount)) +
                        " WHERE ScheduleID = " + SqlNumber(line.scheduleId));
  }
  if (!SumScheduleLines(parent.scheduleId)) return;
  core_.store.Execute(
      "UPDATE tblSchedule SET AccountID = " + SqlNumber(parent.accountId) +
      ", PeriodID = " + SqlNumber(parent.periodId) + ", [DateFrom] = " + SqlDate(parent.dateFrom) +
      ", NoTimes = " + std::to_string(parent.noTimes) +
      ", AddToAccount = " + std::to_string(static_cast<int>(parent.addToAccount)) + lines);
}

void ScheduleBook::DeleteSchedule(std::int64_t scheduleId, bool withPostedRows) {
  // Rows entered by hand carry the key 0.
  if (scheduleId <= 0) return;
  const UndoLog::Step step = core_.undo.Begin("Delete Schedule");
  Transaction all = core_.store.Begin();
  const std::string key = SqlNumber(scheduleId);
  if (withPostedRows) DeletePostedRows(scheduleId);
  core_.store.Execute("Update tblTransactions Set BankSch = 0 Where BankSch = " + key);
  const std::int64_t parent = core_.ReadKey(
      "Select AllocatedItem from tblSchedule Where ScheduleID = " + key, "AllocatedItem");
  std::optional<ScheduleForecasts> forecasts;
  if (auto split = ReadSchedule(parent)) {
    forecasts.emplace(ledger_, std::move(*split), core_.platform);
  }
  WriteDayRule(core_.store, scheduleId, {});
  core_.store.Execute("Delete From tblSchedule Where AllocatedItem = " + key);
  core_.store.Execute("Delete From tblSchedule Where ScheduleID = " + key);
  if (parent != 0) SumScheduleLines(parent);
  if (forecasts) forecasts->Follow();
  all.Commit();
}

void ScheduleBook::DeletePostedRows(std::int64_t scheduleId) {
  std::vector<std::int64_t> posted;
  {
    Recordset rows = core_.store.OpenRecordset(
        "Select TransactionId, TransferId, AllocatedItem from tblTransactions Where BankSch = " +
        SqlNumber(scheduleId));
    for (; !rows.Eof(); rows.MoveNext()) posted.push_back(rows.Int(0));
  }
  // A closed account keeps its rows.
  for (const std::int64_t row : posted) {
    if (!ledger_.Transactions().ReachesClosedAccount({&row, 1}))
      ledger_.Transactions().DeleteTransaction(row);
  }
}

bool ScheduleBook::SumScheduleLines(std::int64_t scheduleId) {
  const std::string key = SqlNumber(scheduleId);
  const Value sum = core_.store.QueryValue(
      "Select SUM(Amount) as AAmount from tblSchedule Where AllocatedItem = " + key);
  if (sum.IsNull()) return false;
  core_.store.Execute("UPDATE tblSchedule SET [Amount] = " + SqlNumber(RoundMoney(sum.Double())) +
                      " WHERE ScheduleId = " + key);
  return true;
}

void ScheduleBook::DetachFromSchedule(std::int64_t transactionId) {
  const UndoLog::Step step = core_.undo.Begin("Detach from Schedule");
  Transaction all = core_.store.Begin();
  const std::string detach = "Update tblTransactions Set BankSch = 0 Where ";
  core_.store.Execute(detach + "TransactionID = " + SqlNumber(transactionId));
  // Deleting the schedule's rows would otherwise take this one along with its other half.
  if (transactionId != 0) {
    core_.store.Execute(detach + "TransferID = " + SqlNumber(transactionId));
  }
  all.Commit();
}

std::int64_t ScheduleBook::PasteSchedule(std::int64_t scheduleId) {
  const UndoLog::Step step = core_.undo.Begin("Paste Schedule");
  Transaction all = core_.store.Begin();
  if (const auto source = ReadSchedule(scheduleId)) core_.closed.RequireOpen(source->accountId);
  const std::int64_t copy = CopySchedule(scheduleId, 0);
  if (copy == 0) return 0;
  const std::string lines =
      "Select * from tblSchedule Where AllocatedItem = " + SqlNumber(scheduleId);
  for (const std::int64_t line : ReadKeys(core_.store, lines)) CopySchedule(line, copy);
  BeginBehind(*ReadSchedule(scheduleId), copy);
  all.Commit();
  return copy;
}

std::int64_t ScheduleBook::PasteSchedules(Keys scheduleIds) {
  const UndoLog::Step step = core_.undo.Begin("Paste Schedule");
  Transaction all = core_.store.Begin();
  std::int64_t last = 0;
  for (const std::int64_t schedule : scheduleIds) {
    if (const std::int64_t copy = PasteSchedule(schedule)) last = copy;
  }
  all.Commit();
  return last;
}

// The copy goes on where its original stands: what that one has posted comes no second time. Of a
// finished one the copy is finished too, until a person gives it a plan.
void ScheduleBook::BeginBehind(const ScheduleDetails& source, std::int64_t copy) {
  ScheduleRecord record = *ReadSchedule(copy);
  if (record.allocatedItem != 0) return;
  record.days = source.days;
  const SchedulePlan plan = PlanOf(source);
  const std::optional<Date> last = PostedOf(core_.store, source.scheduleId).Last();
  const auto step = plan.Step();
  const int payments = plan.Payments();
  int passed = 0;
  while (step && (source.isFinished ? passed < payments : last && record.dateFrom <= *last)) {
    record.dateFrom = step->After(record.dateFrom);
    ++passed;
  }
  if (payments > 0) record.noTimes = passed < payments ? payments - passed : -payments;
  SaveSchedule(record);
}

std::int64_t ScheduleBook::CopySchedule(std::int64_t sourceId, std::int64_t parentId) {
  const int copied = core_.store.Execute(
      "Insert INTO tblSchedule (AccountID,AddToAccount,AllocatedItem,[Amount],CategoryID,"
      "[DateFrom],Description,NoTimes,PayeeID,PaymentID,PeriodID,Reference,TfrAccountID) "
      "SELECT AccountID,AddToAccount," +
      SqlNumber(parentId) +
      ",[Amount],CategoryID , [DateFrom], Description, NoTimes, PayeeID, PaymentID, PeriodID, "
      "Reference, TfrAccountID from tblSchedule WHERE ScheduleId = " +
      SqlNumber(sourceId));
  if (copied == 0) return 0;
  return core_.ReadKey("Select Max(ScheduleID) as ScheduleID from tblSchedule", "ScheduleID");
}

}  // namespace corvanta::inline ledger
