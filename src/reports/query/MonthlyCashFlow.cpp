#include "reports/query/MonthlyCashFlow.h"

#include "ledger/Money.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline reports {
namespace {

// Four digits of the year and two of the month, so that the order of texts is that of days.
constexpr const char* kMonthKey =
    "cstr(Year([DATE]))+(iif(len(cstr(Month([DATE])))=1,'0'+cstr(Month([Date])),cstr(Month([Date]))"
    "))";

}  // namespace

void MonthlyCashFlow::Fill(const ReportRun& run, ReportTable& table) const {
  const std::string key = kMonthKey;
  Recordset rows = run.Store().OpenRecordset(
      "Select " + key +
      " as SYEAR, SUM(iif(Amount > 0,Amount,0)) as Income, SUM(iif(Amount < 0,Amount,0)) as "
      "Expense, CC.Currency, " +
      run.exchange + " AS Exchange From " + run.clause.KeywordsWith(kMonthTables) +
      run.clause.Where(ReportClause::Payments::NotJoined) + kWholeOnly + "GROUP BY " + key +
      ",CURRENCY, " + run.exchange + "ORDER BY " + key + ",CURRENCY ");
  RowFold fold(table);
  for (; !rows.Eof(); rows.MoveNext()) {
    const double rate = rows.Double("Exchange");
    const double income = rows.Double("Income") * rate;
    const double expense = rows.Double("Expense") * rate;
    const std::string currency = run.rates.ShownIn(rows.Text("Currency"), rate);
    const std::string month = rows.Text("SYEAR");
    fold.Add(GroupRow(
        month, currency,
        {month, RoundMoney(income), RoundMoney(expense), RoundMoney(income + expense), currency}));
  }
  AppendTotals(table, {"Income", "Expense", "Total"});
}

Report::Sources MonthlyCashFlow::EvidenceOf(const ReportRun& run) const {
  return {run.clause.KeywordsWith(kMonthTables),
          run.clause.Where(ReportClause::Payments::NotJoined) + kWholeOnly};
}

bool MonthlyCashFlow::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                           const ReportRun& /*run*/) const {
  const int month = evidence.date.Year() * 100 + evidence.date.Month();
  return std::to_string(month) == row.groupKey;
}

std::string MonthlyCashFlow::Narrowed(const ReportRow& row, const ReportRun& /*run*/) const {
  constexpr std::size_t kYear = 4;
  if (row.groupKey.size() <= kYear) return {};
  const auto first = corvanta::Date::FromIso(row.groupKey.substr(0, kYear) + "-" +
                                             row.groupKey.substr(kYear) + "-01");
  if (!first) return {};
  return " AND [Date] Between " + SqlDate(*first) + " AND " +
         SqlEndOf(first->AddMonths(1).AddDays(-1));
}

}  // namespace corvanta::inline reports
