#include "reports/query/AccountSummary.h"

#include "ledger/Money.h"
#include "platform/TextCase.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <tuple>

namespace corvanta::inline reports {
namespace {

struct Account {
  std::int64_t id = 0;
  std::string name;
  double opening = 0;
  std::string currency;
  double rate = 1;
};

std::vector<Account> ReadAccounts(const ReportRun& run) {
  std::vector<Account> accounts;
  Recordset rows = run.Store().OpenRecordset(
      "SELECT A.AccountID, A.Account, A.OpeningBalance, CU.Currency, " + run.exchange +
      " AS Exchange FROM tblCurrency AS CU INNER JOIN tblAccounts AS A ON CU.CurrencyID = "
      "A.CurrencyId " +
      run.clause.AccountCondition() + " Group By A.AccountID, Account, OpeningBalance, Currency");
  for (; !rows.Eof(); rows.MoveNext()) {
    accounts.push_back(
        {rows.Int(0), rows.Text("Account"), rows.Double(2), rows.Text("Currency"), rows.Double(4)});
  }
  std::ranges::sort(accounts, [](const Account& first, const Account& second) {
    const int order = CompareFolded(first.name, second.name);
    return order == 0 ? first.id < second.id : order < 0;
  });
  return accounts;
}

// The account's whole entries before the range; 0 where all days are shown.
double BroughtForward(const ReportRun& run, std::int64_t account) {
  const std::optional<Date> before = run.clause.DayBefore();
  if (!before) return 0;
  return run.Store()
      .QueryValue("SELECT SUM(Amount) as RunBal, Currency, " + run.exchange + " AS Exchange FROM " +
                  run.clause.WithKeywords(kBalanceTables) +
                  run.clause.WhereUntil(before, ReportClause::Payments::NotJoined) +
                  " AND T.AllocatedItem = 0 AND A.AccountID =" + SqlNumber(account) +
                  " GROUP BY Currency," + run.exchange)
      .Double();
}

struct Movement {
  double income = 0;
  double expense = 0;
};

Movement ReadMovement(const ReportRun& run, std::int64_t account) {
  const Recordset row = run.Store().OpenRecordset(
      "SELECT Sum(iif(Amount < 0,Amount,0)) as [Expense],  Sum(iif(Amount >= 0,Amount,0)) as "
      "[Income], CU.Currency, " +
      run.exchange + " AS Exchange FROM " + run.clause.WithKeywords(kMovementTables) +
      run.clause.Where(ReportClause::Payments::NotJoined) +
      " AND T.AllocatedItem = 0 AND A.AccountID = " + SqlNumber(account) + " Group by CU.Currency");
  if (row.Eof()) return {};
  return {row.Double("Income"), row.Double("Expense")};
}

}  // namespace

void AccountSummary::Fill(const ReportRun& run, ReportTable& table) const {
  for (const Account& account : ReadAccounts(run)) {
    const double before = account.opening + BroughtForward(run, account.id);
    const Movement movement = ReadMovement(run, account.id);
    const double balance = before + movement.income + movement.expense;
    const std::string currency = run.rates.ShownIn(account.currency, account.rate);
    table.rows.push_back(GroupRow(SqlNumber(account.id), currency,
                                  {account.name, RoundMoney(movement.income * account.rate),
                                   RoundMoney(movement.expense * account.rate),
                                   RoundMoney(balance * account.rate), currency}));
  }
  AppendTotals(table, {"Income", "Expense", "Balance"});
}

Report::Sources AccountSummary::EvidenceOf(const ReportRun& run) const {
  return {run.clause.WithKeywords(kMovementTables),
          run.clause.Where(ReportClause::Payments::NotJoined) + kWholeOnly};
}

bool AccountSummary::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                          const ReportRun& /*run*/) const {
  return SqlNumber(evidence.accountId) == row.groupKey;
}

std::string AccountSummary::Narrowed(const ReportRow& row, const ReportRun& /*run*/) const {
  return " AND A.AccountID = " + row.groupKey;
}

std::vector<ExplainedRow> AccountSummary::Explain(const ReportRun& run, const ReportTable& table,
                                                  const ReportRow& row, std::size_t column) const {
  if (table.columns.at(column).header != "Balance") return Report::Explain(run, table, row, column);
  const auto isWanted = [&](const std::string& key, const std::string& currency) {
    if (run.rates.ShownIn(currency) != row.currency) return false;
    return row.kind == ReportRowKind::Total || key == row.groupKey;
  };
  std::vector<ExplainedRow> explained;
  for (const Account& account : ReadAccounts(run)) {
    if (account.opening == 0 || !isWanted(SqlNumber(account.id), account.currency)) continue;
    explained.push_back(
        Beside("Opening balance", account.name, account.currency, account.opening, account.rate));
  }
  std::optional<corvanta::Date> end;
  if (run.request.range) end = run.request.range->to;
  Sources sources{run.clause.WithKeywords(kMovementTables),
                  run.clause.WhereUntil(end, ReportClause::Payments::NotJoined) + kWholeOnly};
  if (row.kind != ReportRowKind::Total) sources.conditions += Narrowed(row, run);
  for (const EvidenceRow& evidence : ReadEvidence(run, sources)) {
    if (!isWanted(SqlNumber(evidence.accountId), evidence.currency)) continue;
    explained.push_back(Explained(evidence, evidence.amount, run.rates.RateOf(evidence.currency)));
  }
  return explained;
}

}  // namespace corvanta::inline reports
