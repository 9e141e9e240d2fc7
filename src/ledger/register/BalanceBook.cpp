#include "ledger/register/BalanceBook.h"

#include "ledger/Money.h"
#include "ledger/register/Balances.h"
#include "ledger/register/RegisterReader.h"
#include "ledger/register/RegisterRows.h"
#include "ledger/register/StatusFilter.h"
#include "platform/Locale.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

// Ends with "AND", as the two statements made of it go on differently.
std::string TotalsStatement(const StatusFilter& filter) {
  std::string text =
      "Select (Sum(t.Amount) + a.OpeningBalance) AS Balance, "
      "SUM(iif(Amount > 0,Amount,0)) as Income, SUM(iif(Amount < 0,Amount,0)) as Expense "
      "from tblTransactions t, tblCategory c, tblAccounts a "
      "Where c.CategoryID = t.CategoryID AND t.accountId = a.accountID AND AllocatedItem = 0 AND " +
      filter.Clause();
  text.pop_back();
  return text;
}

std::string PeriodStatement(const std::string& base, const std::string& account,
                            const std::optional<Period>& period) {
  if (!period) return base.substr(0, base.size() - 3) + account;
  return base + " Date Between " + SqlDate(period->from) + " AND " + SqlEndOf(period->to) + account;
}

std::string BalanceStatement(const std::string& base, const std::string& account,
                             const std::optional<Period>& period) {
  if (!period) return base.substr(0, base.size() - 3) + account;
  return base + " Date <= " + SqlEndOf(period->to) + account;
}

// An account whose opening balance was never written opens with nothing.
double BalanceOf(const Recordset& row) {
  const Value balance = row.Field("Balance");
  if (!balance.IsNull()) return RoundMoney(balance.Double());
  return RoundMoney(row.Double("Income") + row.Double("Expense"));
}

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

PeriodTotals BalanceBook::Totals(std::int64_t accountId, const StatusFilter& filter,
                                 const std::optional<Period>& period) {
  PeriodTotals totals;
  const std::string base = TotalsStatement(filter);
  const std::string account =
      " AND t.AccountID =" + SqlNumber(accountId) + " Group by a.OpeningBalance";
  {
    const Recordset row = core_.store.OpenRecordset(PeriodStatement(base, account, period));
    if (!row.Eof()) {
      totals.thisPeriod = BalanceOf(row);
      totals.paidIn = RoundMoney(row.Double("Income"));
      totals.paidOut = RoundMoney(row.Double("Expense"));
    }
  }
  if (!period) {
    // Both statements are the same one then.
    totals.balance = totals.thisPeriod;
    return totals;
  }
  const Recordset row = core_.store.OpenRecordset(BalanceStatement(base, account, period));
  if (!row.Eof()) totals.balance = BalanceOf(row);
  return totals;
}

std::int64_t BalanceBook::UnclearedCount(std::int64_t accountId) {
  return corvanta::UnclearedCount(core_.store, accountId);
}

double BalanceBook::RunningBalance(std::int64_t accountId, const StatusFilter& filter, Date day) {
  return RoundMoney(core_.store
                        .QueryValue("Select (Sum(t.Amount)) AS RunBalance "
                                    "from tblTransactions t, tblCategory c, tblAccounts a "
                                    "Where t.AllocatedItem = 0 AND c.CategoryID = t.CategoryID AND "
                                    "t.accountId = a.accountID AND " +
                                    filter.Clause() + "Date <= " + SqlEndOf(day) +
                                    " AND t.AccountID =" + SqlNumber(accountId))
                        .Double());
}

double BalanceBook::AccountBalance(std::int64_t accountId, const TreeOptions& options) {
  if (accountId == 0) return 0;
  const std::string id = SqlNumber(accountId);
  std::string clauses = options.filter.Clause();
  if (options.end) clauses += "Date <= " + SqlEndOf(*options.end) + " AND ";
  const double sum =
      core_.store
          .QueryValue(
              "Select Sum(t.Amount) AS Balance  from ((tblTransactions t INNER JOIN "
              "tblCategory c ON t.CategoryID = c.CategoryID)  INNER JOIN tblAccounts a ON "
              "t.AccountID=a.AccountID) WHERE AllocatedItem = 0  AND " +
              clauses + " A.AccountID=" + id + " Group by a.AccountID,  OpeningBalance")
          .Double();
  const double opening =
      core_.store.QueryValue("Select OpeningBalance from tblAccounts Where AccountID = " + id)
          .Double();
  return RoundMoney(opening + sum + (options.valuation ? HoldingsValue(accountId) : 0));
}

double BalanceBook::HoldingsValue(std::int64_t accountId, const std::string& condition) {
  std::vector<std::pair<double, std::int64_t>> held;
  {
    Recordset rows = core_.store.OpenRecordset(
        "SELECT SUM(iif(T.Action = 2 OR T.Action = 6, -1 * Shares, Shares)) as Total, T.PayeeID "
        "from ((tblTransactions T INNER JOIN tblAccounts A ON A.AccountID = T.AccountID) "
        "INNER JOIN tblPayees P ON P.PayeeID = T.PayeeID) WHERE  P.Investment = 1 "
        "AND T.Shares <> 0 AND A.AccountID=" +
        SqlNumber(accountId) + condition + " Group By T.PayeeID ");
    for (; !rows.Eof(); rows.MoveNext()) held.emplace_back(rows.Double(0), rows.Int(1));
  }
  double value = 0;
  for (const auto& [units, payee] : held) {
    value += units * core_.store
                         .QueryValue("Select Top 1 Price from tblHistory WHERE PayeeId = " +
                                     SqlNumber(payee) + " Order by [Date] Desc, HistoryID Desc")
                         .Double();
  }
  return RoundMoney(value);
}

std::vector<RegisterRow> BalanceBook::Register(std::int64_t accountId, const StatusFilter& filter,
                                               const std::optional<Period>& period) {
  const RegisterScope scope{accountId, filter, period};
  double balance = BalanceBefore(core_.store, scope);
  std::vector<RegisterRow> result;
  const RegisterNames names(core_.store);
  const RegisterLinks links(core_.store, accountId);
  // Growing step by step would move a long register several times over.
  result.reserve(static_cast<std::size_t>(
      core_.store
          .QueryValue("Select Count(*) from tblTransactions T WHERE T.AllocatedItem = 0 AND "
                      "T.AccountID = " +
                      SqlNumber(accountId))
          .Int()));
  Recordset rows = core_.store.OpenRecordset(RowsStatement() + EntryCondition(scope) +
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

}  // namespace corvanta::inline ledger
