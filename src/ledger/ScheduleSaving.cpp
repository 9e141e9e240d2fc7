// Writing schedules and their split lines.
#include "ledger/ScheduleDates.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"

#include <algorithm>
#include <tuple>

namespace corvanta {
namespace {

using Share = std::tuple<std::int64_t, double, std::string, std::string>;

template <typename Lines>
std::vector<Share> SharesOf(const Lines& lines) {
  std::vector<Share> shares;
  for (const auto& line : lines) {
    shares.emplace_back(line.categoryId, line.amount, line.reference, line.description);
  }
  std::ranges::sort(shares);
  return shares;
}

bool IsAsPosted(const TransactionDetails& row, const ScheduleRecord& schedule) {
  return row.status.bankChk == 0 && row.status.bankRec == 0 &&
         row.accountId == schedule.accountId && row.categoryId == schedule.categoryId &&
         row.paymentId == schedule.paymentId && row.payeeId == schedule.payeeId &&
         row.amount == schedule.amount && row.reference == schedule.reference &&
         row.description == schedule.description && row.date == row.scheduleDate &&
         row.twinAccountId == schedule.transferAccountId;
}

// Of the other half of a row that is. What came in for it in another currency is as it may be.
bool IsAsPosted(const TransactionDetails& twin, const TransactionDetails& row,
                std::int64_t category) {
  return twin.status.bankChk == 0 && twin.status.bankRec == 0 && twin.date == row.date &&
         twin.paymentId == row.paymentId && twin.payeeId == row.payeeId &&
         twin.reference == row.reference && twin.description == row.description &&
         (category == 0 || twin.categoryId == category) &&
         (twin.currency != row.currency || twin.amount == -row.amount);
}

// Whether files or keywords belong to the row; never to one with the key 0.
bool IsLinked(Connection& store, std::int64_t transactionId) {
  if (transactionId == 0) return false;
  for (const char* table : {"tblAttachments", "tblKeywordLink"}) {
    const Value links = store.QueryValue("Select Count(*) from " + std::string(table) +
                                         " Where TransactionID = " + SqlNumber(transactionId));
    if (links.Int() != 0) return true;
  }
  return false;
}

bool IsOnce(Connection& store, std::int64_t periodId) {
  const Value code =
      store.QueryValue("Select [Period] from tblPeriods Where PeriodID = " + SqlNumber(periodId));
  const auto step = PeriodStep::FromCode(code.Text());
  return step && step->isOnce;
}

}  // namespace

std::int64_t clsCorvanta::SaveSchedule(ScheduleRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Schedule");
  Transaction all = connection_.Begin();
  if (record.scheduleId != 0) {
    const auto old = ReadSchedule(record.scheduleId);
    if (!old) return 0;
    record.allocatedItem = old->allocatedItem;
    if (old->allocatedItem == 0 && record != static_cast<const ScheduleRecord&>(*old)) {
      DeleteForecasts(*old, ScheduleLines(old->scheduleId));
    }
  }
  if (record.allocatedItem != 0) {
    const auto parent = ReadSchedule(record.allocatedItem);
    if (!TakeFromParent(record)) return 0;
    DeleteForecasts(*parent, ScheduleLines(parent->scheduleId));
  }
  if (record.transferAccountId == record.accountId) record.transferAccountId = 0;
  if (record.noTimes >= 0 && IsOnce(connection_, record.periodId)) record.noTimes = 1;
  record.scheduleId = WriteSchedule(record);
  if (record.allocatedItem != 0) {
    SumScheduleLines(record.allocatedItem);
  } else {
    ScheduleLinesFollow(record);
  }
  all.Commit();
  return record.scheduleId;
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

// What a person has made of a posted row stays: it is compared with what posting wrote.
void clsCorvanta::DeleteForecasts(const ScheduleRecord& schedule,
                                  const std::vector<ScheduleDetails>& lines) {
  const Date first = std::max(platform_.clock.Today().AddDays(1), schedule.dateFrom);
  std::vector<std::int64_t> forecasts;
  {
    Recordset rows = connection_.OpenRecordset(
        "Select TransactionID from tblTransactions Where AllocatedItem = 0 AND BankSch = " +
        SqlNumber(schedule.scheduleId) + " AND ScheduleDate >= " + SqlDate(first));
    for (; !rows.Eof(); rows.MoveNext()) forecasts.push_back(rows.Int(0));
  }
  const std::vector<Share> shares = SharesOf(lines);
  const std::int64_t twinCategory =
      schedule.transferAccountId == 0 ? 0 : FindCategory("Credit", "");
  for (const std::int64_t key : forecasts) {
    const auto row = ReadTransaction(key);
    if (!row || !IsAsPosted(*row, schedule) || SharesOf(SplitLines(key)) != shares) continue;
    const auto twin = ReadTransaction(row->transferId);
    if (twin && !IsAsPosted(*twin, *row, twinCategory)) continue;
    const bool isLinked = IsLinked(connection_, key) || IsLinked(connection_, row->transferId);
    if (!isLinked && !ReachesClosedAccount({&key, 1})) DeleteTransaction(key);
  }
}

}  // namespace corvanta
