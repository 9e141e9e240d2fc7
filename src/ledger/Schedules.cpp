#include "ledger/Money.h"
#include "ledger/ScheduleDays.h"
#include "ledger/ScheduleForecasts.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <optional>
#include <utility>

namespace corvanta {

void clsCorvanta::DeleteSchedule(std::int64_t scheduleId, bool withPostedRows) {
  // Rows entered by hand carry the key 0.
  if (scheduleId <= 0) return;
  const UndoLog::Step step = undo_.Begin("Delete Schedule");
  Transaction all = connection_.Begin();
  const std::string key = SqlNumber(scheduleId);
  if (withPostedRows) DeletePostedRows(scheduleId);
  connection_.Execute("Update tblTransactions Set BankSch = 0 Where BankSch = " + key);
  const std::int64_t parent =
      ReadKey("Select AllocatedItem from tblSchedule Where ScheduleID = " + key, "AllocatedItem");
  std::optional<ScheduleForecasts> forecasts;
  if (auto split = ReadSchedule(parent)) {
    forecasts.emplace(*this, std::move(*split), platform_);
  }
  WriteDayRule(connection_, scheduleId, {});
  connection_.Execute("Delete From tblSchedule Where AllocatedItem = " + key);
  connection_.Execute("Delete From tblSchedule Where ScheduleID = " + key);
  if (parent != 0) SumScheduleLines(parent);
  if (forecasts) forecasts->Follow();
  all.Commit();
}

void clsCorvanta::DeletePostedRows(std::int64_t scheduleId) {
  std::vector<std::int64_t> posted;
  {
    Recordset rows = connection_.OpenRecordset(
        "Select TransactionId, TransferId, AllocatedItem from tblTransactions Where BankSch = " +
        SqlNumber(scheduleId));
    for (; !rows.Eof(); rows.MoveNext()) posted.push_back(rows.Int(0));
  }
  // A closed account keeps its rows.
  for (const std::int64_t row : posted) {
    if (!ReachesClosedAccount({&row, 1})) DeleteTransaction(row);
  }
}

bool clsCorvanta::SumScheduleLines(std::int64_t scheduleId) {
  const std::string key = SqlNumber(scheduleId);
  const Value sum = connection_.QueryValue(
      "Select SUM(Amount) as AAmount from tblSchedule Where AllocatedItem = " + key);
  if (sum.IsNull()) return false;
  connection_.Execute("UPDATE tblSchedule SET [Amount] = " + SqlNumber(RoundMoney(sum.Double())) +
                      " WHERE ScheduleId = " + key);
  return true;
}

void clsCorvanta::DetachFromSchedule(std::int64_t transactionId) {
  const UndoLog::Step step = undo_.Begin("Detach from Schedule");
  Transaction all = connection_.Begin();
  const std::string detach = "Update tblTransactions Set BankSch = 0 Where ";
  connection_.Execute(detach + "TransactionID = " + SqlNumber(transactionId));
  // Deleting the schedule's rows would otherwise take this one along with its other half.
  if (transactionId != 0) {
    connection_.Execute(detach + "TransferID = " + SqlNumber(transactionId));
  }
  all.Commit();
}

}  // namespace corvanta
