#include "ledger/schedules/ReminderSides.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

constexpr std::int64_t kReceiving = 2;

}  // namespace

std::vector<ReminderSide> ReadReminderSides(Connection& store, Date last) {
  const std::string begun = "AND DateFrom <= " + SqlDate(last) + " AND CloseAccount <> 1 ";
  Recordset rows = store.OpenRecordset(
      "Select ScheduleID, DateFrom, p.Description as Period, pp.Payee, Amount, "
      "S.Description as sDes, S.TfrAccountID, 1 as Tfrtype "
      "from ((tblSchedule S INNER JOIN tblPeriods P ON S.PeriodID = P.PeriodID) "
      "INNER JOIN tblPayees PP ON S.PayeeID = PP.PayeeID) "
      "INNER JOIN tblAccounts A ON A.AccountID = S.AccountID "
      "WHERE S.AllocatedItem = 0 AND ScheduleID > 0 " +
      begun +
      "UNION Select ScheduleID, DateFrom, p.Description as Period, pp.Payee, Amount, "
      "S.Description as sDes, S.TfrAccountID, 2 as Tfrtype "
      "from ((tblSchedule S INNER JOIN tblPeriods P ON S.PeriodID = P.PeriodID) "
      "INNER JOIN tblPayees PP ON S.PayeeID = PP.PayeeID) "
      "INNER JOIN tblAccounts A ON A.AccountID = S.TfrAccountID "
      "WHERE S.AllocatedItem = 0 AND ScheduleID > 0 " +
      begun + "Order By [DateFrom], ScheduleID");
  std::vector<ReminderSide> sides;
  for (; !rows.Eof(); rows.MoveNext()) {
    ReminderSide& side = sides.emplace_back();
    side.scheduleId = rows.Int(0);
    side.from = rows.Day(1).value_or(Date());
    side.period = rows.Text(2);
    side.payee = rows.Text(3);
    side.amount = rows.Double(4);
    side.description = rows.Text(5);
    side.transferAccountId = rows.Int(6);
    side.isReceiving = rows.Int(7) == kReceiving;
  }
  return sides;
}

}  // namespace corvanta::inline ledger
