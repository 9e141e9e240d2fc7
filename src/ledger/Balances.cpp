#include "ledger/Balances.h"

#include "ledger/Money.h"
#include "ledger/RegisterRows.h"
#include "platform/Locale.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {
namespace {

// The end of the day, for rows that carry a time.
std::string EndOf(Date day) {
  return SqlDate(DateTime{day, 86399});
}

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
  return base + " Date Between " + SqlDate(period->from) + " AND " + EndOf(period->to) + account;
}

std::string BalanceStatement(const std::string& base, const std::string& account,
                             const std::optional<Period>& period) {
  if (!period) return base.substr(0, base.size() - 3) + account;
  return base + " Date <= " + EndOf(period->to) + account;
}

// An account whose opening balance was never written opens with nothing.
double BalanceOf(const Recordset& row) {
  const Value balance = row.Field("Balance");
  if (!balance.IsNull()) return RoundMoney(balance.Double());
  return RoundMoney(row.Double("Income") + row.Double("Expense"));
}

void AddTotal(std::vector<CurrencyTotal>& totals, const AccountRow& account) {
  for (CurrencyTotal& total : totals) {
    if (total.currencyId != account.currencyId) continue;
    total.total = RoundMoney(total.total + account.balance);
    return;
  }
  totals.push_back({account.currencyId, account.currency, account.balance});
}

}  // namespace

PeriodTotals clsCorvanta::Totals(std::int64_t accountId, const StatusFilter& filter,
                                 const std::optional<Period>& period) {
  PeriodTotals totals;
  const std::string base = TotalsStatement(filter);
  const std::string account =
      " AND t.AccountID =" + SqlNumber(accountId) + " Group by a.OpeningBalance";
  {
    const Recordset row = connection_.OpenRecordset(PeriodStatement(base, account, period));
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
  const Recordset row = connection_.OpenRecordset(BalanceStatement(base, account, period));
  if (!row.Eof()) totals.balance = BalanceOf(row);
  return totals;
}

EntrySums ReadSums(Connection& store, std::int64_t accountId, const StatusFilter& filter,
                   const std::optional<Date>& from, const std::optional<Date>& to) {
  std::string days;
  if (from) days += "t.[Date] >= " + SqlDate(*from) + " AND ";
  if (to) days += "t.[Date] <= " + EndOf(*to) + " AND ";
  const Recordset row = store.OpenRecordset(
      "Select Count(*), Sum(t.Amount), SUM(iif(t.Amount > 0,t.Amount,0)), "
      "SUM(iif(t.Amount < 0,t.Amount,0)) from tblTransactions t INNER JOIN tblCategory c ON "
      "t.CategoryID = c.CategoryID Where " +
      filter.Clause() + days + "t.AllocatedItem = 0 AND t.AccountID = " + SqlNumber(accountId));
  if (row.Eof()) return {};
  return {row.Int(0), row.Double(1), row.Double(2), row.Double(3)};
}

std::int64_t UnclearedCount(Connection& store, std::int64_t accountId) {
  return store
      .QueryValue(
          "Select Count(*) as RecCount From tblTransactions "
          "Where AllocatedItem = 0 AND Bankchk = 0 AND AccountID =" +
          SqlNumber(accountId))
      .Int();
}

std::int64_t clsCorvanta::UnclearedCount(std::int64_t accountId) {
  return corvanta::UnclearedCount(connection_, accountId);
}

double clsCorvanta::RunningBalance(std::int64_t accountId, const StatusFilter& filter, Date day) {
  return RoundMoney(connection_
                        .QueryValue("Select (Sum(t.Amount)) AS RunBalance "
                                    "from tblTransactions t, tblCategory c, tblAccounts a "
                                    "Where t.AllocatedItem = 0 AND c.CategoryID = t.CategoryID AND "
                                    "t.accountId = a.accountID AND " +
                                    filter.Clause() + "Date <= " + EndOf(day) +
                                    " AND t.AccountID =" + SqlNumber(accountId))
                        .Double());
}

double clsCorvanta::AccountBalance(std::int64_t accountId, const TreeOptions& options) {
  if (accountId == 0) return 0;
  const std::string id = SqlNumber(accountId);
  std::string clauses = options.filter.Clause();
  if (options.end) clauses += "Date <= " + EndOf(*options.end) + " AND ";
  const double sum =
      connection_
          .QueryValue(
              "Select Sum(t.Amount) AS Balance  from ((tblTransactions t INNER JOIN "
              "tblCategory c ON t.CategoryID = c.CategoryID)  INNER JOIN tblAccounts a ON "
              "t.AccountID=a.AccountID) WHERE AllocatedItem = 0  AND " +
              clauses + " A.AccountID=" + id + " Group by a.AccountID,  OpeningBalance")
          .Double();
  const double opening =
      connection_.QueryValue("Select OpeningBalance from tblAccounts Where AccountID = " + id)
          .Double();
  return RoundMoney(opening + sum + (options.valuation ? HoldingsValue(accountId) : 0));
}

double clsCorvanta::HoldingsValue(std::int64_t accountId) {
  std::vector<std::pair<double, std::int64_t>> held;
  {
    Recordset rows = connection_.OpenRecordset(
        "SELECT SUM(iif(T.Action = 2 OR T.Action = 6, -1 * Shares, Shares)) as Total, T.PayeeID "
        "from ((tblTransactions T INNER JOIN tblAccounts A ON A.AccountID = T.AccountID) "
        "INNER JOIN tblPayees P ON P.PayeeID = T.PayeeID) WHERE  P.Investment = 1 "
        "AND A.AccountID=" +
        SqlNumber(accountId) + " Group By T.PayeeID ");
    for (; !rows.Eof(); rows.MoveNext()) held.emplace_back(rows.Double(0), rows.Int(1));
  }
  double value = 0;
  for (const auto& [units, payee] : held) {
    value += units * connection_
                         .QueryValue("Select Top 1 Price from tblHistory WHERE PayeeId = " +
                                     SqlNumber(payee) + " Order by [Date] Desc, HistoryID Desc")
                         .Double();
  }
  return RoundMoney(value);
}

TotalsTexts TextsOf(const PeriodTotals& totals, const Locale& locale) {
  TotalsTexts texts;
  if (totals.thisPeriod)
    texts.thisPeriod = "This Period: " + locale.FormatNumber(*totals.thisPeriod);
  if (totals.balance) texts.balance = "Balance: " + locale.FormatNumber(*totals.balance);
  if (totals.paidIn) texts.paidIn = "Paid In : " + locale.FormatNumber(*totals.paidIn);
  if (totals.paidOut) texts.paidOut = "Paid Out : " + locale.FormatNumber(*totals.paidOut);
  return texts;
}

std::string UnclearedText(std::int64_t count) {
  return "Number of Uncleared records = " + std::to_string(count);
}

std::vector<AccountGroupBalances> ByGroup(const std::vector<AccountRow>& accounts) {
  std::vector<AccountGroupBalances> groups;
  for (const AccountRow& account : accounts) {
    if (groups.empty() || groups.back().accountTypeId != account.accountTypeId) {
      groups.push_back({account.accountTypeId, account.accountType, {}, {}});
    }
    groups.back().accounts.push_back(account);
    AddTotal(groups.back().totals, account);
  }
  return groups;
}

std::vector<CurrencyTotal> TotalsByCurrency(const std::vector<AccountRow>& accounts) {
  std::vector<CurrencyTotal> totals;
  for (const AccountRow& account : accounts) AddTotal(totals, account);
  return totals;
}

std::string AccountCaption(const AccountRow& account) {
  return account.closed ? account.account + " [Closed] " : account.account;
}

std::optional<LowestPoint> LowestAhead(RegisterRows& rows, Date today) {
  rows.ReadBefore(today.AddDays(1));
  std::optional<LowestPoint> lowest;
  Date evening = today;
  for (std::size_t row = rows.Count(); row > rows.FirstRead(); --row) {
    const RegisterEntry& entry = rows.Entry(row - 1);
    if (entry.date <= today) break;
    const bool isEvening = entry.date != evening;
    evening = entry.date;
    // Of days that are alike the first one.
    if (isEvening && (!lowest || entry.balance <= lowest->balance)) {
      lowest = LowestPoint{entry.date, entry.balance};
    }
  }
  return lowest;
}

}  // namespace corvanta
