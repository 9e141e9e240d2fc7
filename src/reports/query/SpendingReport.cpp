#include "reports/query/SpendingReport.h"

#include "ledger/Money.h"
#include "platform/TextCase.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline reports {
namespace {

// The parts of the statement in which the three reports differ.
struct SpendingSql {
  std::string columns;  // key, name and whatever else tells rows apart
  std::string grouping;
  std::string order;
};

SpendingSql SqlOf(SpendingBy by, bool foldsSubCategories, const std::string& exchange) {
  switch (by) {
    case SpendingBy::Category:
      if (foldsSubCategories) {
        return {"max(C.CategoryID) as CategoryID, C.Category, '' as SubCategory, CU.Currency, ",
                "GROUP BY C.Category, CU.Currency," + exchange, " ORDER BY C.Category"};
      }
      return {"C.CategoryID, C.Category, C.SubCategory, CU.Currency, ",
              "GROUP BY C.CategoryID, C.Category, C.SubCategory, CU.Currency," + exchange,
              " ORDER BY C.Category, C.SubCategory"};
    case SpendingBy::Payee:
      return {"PP.PayeeID, PP.Payee, CU.Currency, T.TransferID,",
              "GROUP BY PP.PayeeID, PP.Payee, CU.Currency," + exchange + ",TransferID",
              " ORDER BY PP.Payee"};
    case SpendingBy::PaymentType:
      break;
  }
  return {"P.PaymentID, P.Payment, CU.Currency, ",
          "GROUP BY P.PaymentID, P.Payment, CU.Currency," + exchange, " ORDER BY P.Payment"};
}

}  // namespace

std::string SpendingRows(SpendingBy by) {
  return by == SpendingBy::Category ? ReportClause::WithoutSplitParents() : kWholeOnly;
}

void SpendingReport::Fill(const ReportRun& run, ReportTable& table) const {
  const SpendingSql sql = SqlOf(by_, run.request.foldsSubCategories, run.exchange);
  const Sources sources = EvidenceOf(run);
  Recordset rows = run.Store().OpenRecordset(
      "SELECT Count(T.TransactionId) as NRecords, Sum(iif(Amount < 0,Amount,0)) as [Expense],  "
      "Sum(iif(Amount > 0,Amount,0)) as [Income]," +
      sql.columns + run.exchange + " AS Exchange FROM " + sources.tables + sources.conditions +
      " " + sql.grouping + sql.order);
  RowFold fold(table);
  for (; !rows.Eof(); rows.MoveNext()) {
    const double rate = rows.Double("Exchange");
    const double income = rows.Double("Income") * rate;
    const double expense = rows.Double("Expense") * rate;
    const std::string currency = run.rates.ShownIn(rows.Text("Currency"), rate);
    std::vector<Value> cells = {rows.Text(4)};
    if (by_ == SpendingBy::Category) cells.emplace_back(rows.Text(5));
    for (Value value : {Value(rows.Int(0)), Value(RoundMoney(income)), Value(RoundMoney(expense)),
                        Value(RoundMoney(income + expense)), Value(currency)}) {
      cells.push_back(std::move(value));
    }
    // A transfer stays apart from what was paid to the same payee.
    ReportRow row = GroupRow(SqlNumber(rows.Int(3)), currency, std::move(cells));
    if (by_ == SpendingBy::Payee) row.part = SqlNumber(rows.Int("TransferID"));
    const bool isWhole = by_ == SpendingBy::Category && run.request.foldsSubCategories;
    fold.Add(std::move(row), isWhole ? FoldCase(rows.Text("Category")) : std::string());
  }
  AppendTotals(table, {"Records", "Income", "Expense", "Total"});
}

Report::Sources SpendingReport::EvidenceOf(const ReportRun& run) const {
  return {run.clause.WithKeywords(kFiveTables),
          run.clause.Where(ReportClause::Payments::Joined) + SpendingRows(by_)};
}

bool SpendingReport::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                          const ReportRun& run) const {
  switch (by_) {
    case SpendingBy::Category:
      return IsOfCategory(evidence, row, run);
    case SpendingBy::Payee:
      return SqlNumber(evidence.payeeId) == row.groupKey &&
             SqlNumber(evidence.transferId) == row.part;
    case SpendingBy::PaymentType:
      break;
  }
  return SqlNumber(evidence.paymentId) == row.groupKey;
}

std::string SpendingReport::Narrowed(const ReportRow& row, const ReportRun& run) const {
  if (by_ == SpendingBy::Category) return OnlyCategory(row, run);
  return (by_ == SpendingBy::Payee ? " AND PP.PayeeID = " : " AND P.PaymentID = ") + row.groupKey;
}

std::string OnlyCategory(const ReportRow& row, const ReportRun& run) {
  if (!run.request.foldsSubCategories) return " AND C.CategoryID = " + row.groupKey;
  const std::string name = row.cells.front().Text();
  return name.empty() ? std::string() : " AND C.Category = " + SqlText(name);
}

bool IsOfCategory(const EvidenceRow& evidence, const ReportRow& row, const ReportRun& run) {
  if (!run.request.foldsSubCategories) return SqlNumber(evidence.categoryId) == row.groupKey;
  return EqualFolded(evidence.category, row.cells.front().Text());
}

}  // namespace corvanta::inline reports
