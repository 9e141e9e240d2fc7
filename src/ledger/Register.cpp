#include "ledger/Money.h"
#include "ledger/RegisterReader.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {
namespace {

// What the account held before the first day: its opening balance and the shown rows up to then.
double BalanceBefore(Connection& store, const RegisterScope& scope) {
  const double opening =
      store
          .QueryValue("Select OpeningBalance from tblAccounts WHERE AccountID = " +
                      SqlNumber(scope.accountId))
          .Double();
  if (!scope.period) return opening;
  const Value sum = store.QueryValue(
      "Select Sum(T.[Amount]) AS RunBalance "
      "from tblTransactions T INNER JOIN tblCategory C ON T.CategoryID = C.CategoryID WHERE " +
      EntryCondition({scope.accountId, scope.filter}) + " AND T.[Date] < " +
      SqlDate(scope.period->from));
  return RoundMoney(opening + sum.Double());
}

}  // namespace

std::vector<RegisterRow> clsCorvanta::Register(std::int64_t accountId, const StatusFilter& filter,
                                               const std::optional<Period>& period) {
  const RegisterScope scope{accountId, filter, period};
  double balance = BalanceBefore(connection_, scope);
  std::vector<RegisterRow> result;
  const RegisterNames names(connection_);
  const RegisterLinks links(connection_, accountId);
  // Growing step by step would move a long register several times over.
  result.reserve(static_cast<std::size_t>(
      connection_
          .QueryValue("Select Count(*) from tblTransactions T WHERE T.AllocatedItem = 0 AND "
                      "T.AccountID = " +
                      SqlNumber(accountId))
          .Int()));
  Recordset rows = connection_.OpenRecordset(RowsStatement() + EntryCondition(scope) +
                                             " Order by T.[Date], T.TransactionID");
  const RegisterReader reader(rows, names, links);
  for (; !rows.Eof(); rows.MoveNext()) {
    RegisterRow row;
    if (!reader.Read(row)) continue;
    balance = RoundMoney(balance + row.amount);
    row.balance = balance;
    result.push_back(std::move(row));
  }
  return result;
}

}  // namespace corvanta
