#include "reports/query/AccountTransactions.h"

#include "ledger/Money.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/register/RegisterReader.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline reports {
namespace {

constexpr std::size_t kDay = 10;  // a stored moment begins with its day, as it is shown

std::string OfAccounts(const ReportRun& run) {
  if (!run.request.filter.IsSet(FilterKind::Account)) return {};
  return " AND A.AccountID IN (" + run.request.filter.List(FilterKind::Account) + ") ";
}

}  // namespace

Report::Sources AccountTransactions::Before(const ReportRun& run) {
  return {run.clause.WithKeywords(kBalanceTablesWithPayments),
          run.clause.WhereUntil(run.clause.DayBefore(), ReportClause::Payments::Joined) +
              kWholeOnly + OfAccounts(run)};
}

std::vector<AccountTransactions::Opening> AccountTransactions::Openings(const ReportRun& run) {
  std::vector<Opening> openings;
  const auto add = [&openings](const std::string& currency, double amount) {
    for (Opening& opening : openings) {
      if (opening.currency != currency) continue;
      opening.balance += amount;
      return;
    }
    openings.push_back({currency, amount});
  };
  for (const CurrencyUse& use : run.rates.Uses()) {
    add(run.rates.ShownIn(use.currency, use.rate), use.opening);
  }
  if (!run.clause.DayBefore()) return openings;
  const Sources before = Before(run);
  Recordset rows = run.Store().OpenRecordset(
      "SELECT SUM(Amount) as RunBal, Currency, " + run.exchange + " AS Exchange FROM " +
      before.tables + before.conditions + "GROUP BY Currency," + run.exchange);
  for (; !rows.Eof(); rows.MoveNext()) {
    const double rate = rows.Double("Exchange");
    add(run.rates.ShownIn(rows.Text("Currency"), rate), rows.Double("RunBal") * rate);
  }
  return openings;
}

void AccountTransactions::Fill(const ReportRun& run, ReportTable& table) const {
  std::vector<Opening> balances = Openings(run);
  std::unordered_map<std::string, double*> balanceOf;
  for (Opening& opening : balances) balanceOf[opening.currency] = &opening.balance;
  const Sources sources = EvidenceOf(run);
  Recordset rows = run.Store().OpenRecordset(
      "SELECT A.Account, T.TransactionID, iif(Amount < 0,Amount,0) as [Expense],  iif(Amount >= "
      "0,Amount,0) as [Income], T.Date, T.Action, T.Reference, T.Description, T.BankChk, "
      "T.BankRec, T.TransferId, C.Category, C.SubCategory, P.Payment, PP.Payee, CU.Currency, " +
      run.exchange + " AS Exchange FROM " + sources.tables + sources.conditions +
      " Order by [DATE], T.TransactionID");
  double unknown = 0;
  for (; !rows.Eof(); rows.MoveNext()) {
    const double rate = rows.Double(16);
    const double expense = rows.Double(2) * rate;
    const double income = rows.Double(3) * rate;
    std::string currency = run.rates.ShownIn(std::string(rows.Text(15)), rate);
    const auto known = balanceOf.find(currency);
    double& balance = known == balanceOf.end() ? unknown : *known->second;
    balance = RoundMoney(balance + income + expense);
    const auto day = rows.Day(4);
    // One by one: a list in braces would copy each text once more.
    std::vector<Value> cells;
    cells.reserve(table.columns.size());
    cells.emplace_back(rows.Text(0));
    cells.push_back(day ? Value(rows.Text(4).substr(0, kDay)) : Value());
    cells.emplace_back(rows.Text(14));
    cells.emplace_back(CategoryPath(std::string(rows.Text(11)), std::string(rows.Text(12))));
    cells.emplace_back(rows.Text(6));
    cells.emplace_back(rows.Text(7));
    cells.emplace_back(StatusLetter(rows.Int(8), rows.Int(9)));
    cells.emplace_back(RoundMoney(income));
    cells.emplace_back(RoundMoney(expense));
    cells.emplace_back(balance);
    cells.emplace_back(currency);
    table.rows.push_back(
        {ReportRowKind::Plain, {}, {}, rows.Int(1), std::move(currency), std::move(cells)});
  }
  AppendTotals(table, {"Income", "Expense"});
  const std::size_t column = table.Column("Balance").value();
  for (ReportRow& row : table.rows) {
    if (row.kind != ReportRowKind::Total) continue;
    const auto known = balanceOf.find(row.currency);
    row.cells[column] = known == balanceOf.end() ? unknown : *known->second;
  }
}

Report::Sources AccountTransactions::EvidenceOf(const ReportRun& run) const {
  return {run.clause.WithKeywords(kFiveTables),
          run.clause.Where(ReportClause::Payments::Joined) + run.clause.WithoutOtherSplitParents()};
}

bool AccountTransactions::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                               const ReportRun& /*run*/) const {
  return evidence.transactionId == row.transactionId;
}

std::vector<ExplainedRow> AccountTransactions::Explain(const ReportRun& run,
                                                       const ReportTable& table,
                                                       const ReportRow& row,
                                                       std::size_t column) const {
  if (table.columns.at(column).header != "Balance") return Report::Explain(run, table, row, column);
  std::vector<ExplainedRow> explained;
  const auto add = [&](const std::vector<EvidenceRow>& rows) {
    for (const EvidenceRow& evidence : rows) {
      if (run.rates.ShownIn(evidence.currency) != row.currency) continue;
      explained.push_back(
          Explained(evidence, evidence.amount, run.rates.RateOf(evidence.currency)));
      if (row.kind == ReportRowKind::Plain && evidence.transactionId == row.transactionId) return;
    }
  };
  for (const CurrencyUse& use : run.rates.Uses()) {
    if (use.opening == 0 || run.rates.ShownIn(use.currency, use.rate) != row.currency) continue;
    explained.push_back(
        Beside("Opening balances", {}, use.currency, use.opening / use.rate, use.rate));
  }
  if (run.clause.DayBefore()) add(ReadEvidence(run, Before(run)));
  add(ReadEvidence(run, EvidenceOf(run)));
  return explained;
}

}  // namespace corvanta::inline reports
