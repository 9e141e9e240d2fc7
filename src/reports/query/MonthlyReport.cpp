#include "reports/query/MonthlyReport.h"

#include "ledger/Money.h"
#include "platform/TextCase.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <array>

namespace corvanta::inline reports {
namespace {

constexpr std::array kFields = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

// "iif(Month(DATE)=1,SUM(Amount),0) as [JAN], ...": a row of the query has one month.
std::string MonthColumns() {
  std::string columns;
  int month = 0;
  for (const char* field : kFields) {
    columns +=
        "iif(Month(DATE)=" + std::to_string(++month) + ",SUM(Amount),0) as [" + field + "], ";
  }
  return columns;
}

struct MonthSql {
  std::string columns;
  std::string grouping;
};

MonthSql SqlOf(SpendingBy by, bool foldsSubCategories, const std::string& exchange) {
  if (by == SpendingBy::Payee) {
    return {"PP.PayeeID, PP.Payee, T.TransferID, CC.Currency, ",
            "GROUP BY MONTH(Date), PP.PayeeID, Payee, Currency, " + exchange +
                ",TransferID ORDER BY Payee, Currency "};
  }
  if (foldsSubCategories) {
    return {"max(C.CategoryID) as CategoryID, C.Category, '' as SubCategory, CC.Currency, ",
            "GROUP BY MONTH(Date), C.Category, Currency, " + exchange +
                "ORDER BY C.Category, Currency "};
  }
  return {"C.CategoryID, C.Category, C.SubCategory, CC.Currency, ",
          "GROUP BY MONTH(Date), C.CategoryID, Category, SubCategory, Currency, " + exchange +
              "ORDER BY Category, SubCategory, Currency "};
}

}  // namespace

void MonthlyReport::Fill(const ReportRun& run, ReportTable& table) const {
  const SpendingBy by = by_;
  const MonthSql sql = SqlOf(by, run.request.foldsSubCategories, run.exchange);
  const Sources sources = EvidenceOf(run);
  Recordset rows = run.Store().OpenRecordset("Select " + MonthColumns() + sql.columns +
                                             run.exchange + " AS Exchange From " + sources.tables +
                                             sources.conditions + " " + sql.grouping);
  constexpr int kKey = static_cast<int>(kFields.size());
  RowFold fold(table);
  for (; !rows.Eof(); rows.MoveNext()) {
    const double rate = rows.Double("Exchange");
    const std::string currency = run.rates.ShownIn(rows.Text("Currency"), rate);
    std::vector<Value> cells = {rows.Text(kKey + 1)};
    if (by == SpendingBy::Category) cells.emplace_back(rows.Text(kKey + 2));
    double total = 0;
    for (int month = 0; month < kKey; ++month) {
      const double amount = rows.Double(month) * rate;
      total += amount;
      cells.emplace_back(RoundMoney(amount));
    }
    cells.emplace_back(RoundMoney(total));
    cells.emplace_back(currency);
    // Of a whole category each month came with another key.
    const std::string group = by == SpendingBy::Category && run.request.foldsSubCategories
                                  ? FoldCase(cells.front().Text())
                                  : std::string();
    fold.Add(GroupRow(SqlNumber(rows.Int(kKey)), currency, std::move(cells)), group);
  }
  std::vector<std::string> headers = {"Total"};
  for (int month = 1; month <= kKey; ++month) headers.emplace_back(MonthName(month));
  AppendTotals(table, headers);
}

Report::Sources MonthlyReport::EvidenceOf(const ReportRun& run) const {
  return {run.clause.KeywordsWith(kMonthTables),
          run.clause.Where(ReportClause::Payments::NotJoined) + SpendingRows(by_)};
}

bool MonthlyReport::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                         const ReportRun& run) const {
  if (by_ == SpendingBy::Category) return IsOfCategory(evidence, row, run);
  return SqlNumber(evidence.payeeId) == row.groupKey;
}

std::string MonthlyReport::Narrowed(const ReportRow& row, const ReportRun& run) const {
  return by_ == SpendingBy::Category ? OnlyCategory(row, run) : " AND PP.PayeeID = " + row.groupKey;
}

}  // namespace corvanta::inline reports
