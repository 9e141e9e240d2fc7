#include "reports/query/Report.h"

#include "ledger/Money.h"
#include "platform/TextCase.h"
#include "reports/query/ReportCatalogue.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <utility>

namespace corvanta::inline reports {
namespace {

Value Sum(const Value& first, const Value& second) {
  if (first.IsNull()) return second;
  if (second.IsNull()) return first;
  if (first.IsInteger() && second.IsInteger()) return first.Int() + second.Int();
  return RoundMoney(first.Double() + second.Double());
}

}  // namespace

std::string Report::Currencies(const ReportClause& clause) const {
  return "SELECT Currency, CU.CurrencyID, Sum(OpeningBalance) as OpeningBalance From tblAccounts A "
         "INNER JOIN tblCurrency CU ON A.CurrencyId = CU.CurrencyID " +
         clause.AccountCondition() + "GROUP BY CU.CurrencyID, Currency";
}

Report::Sources Report::EvidenceOf(const ReportRun& /*run*/) const {
  return {};
}

bool Report::IsOf(const EvidenceRow& /*evidence*/, const ReportRow& /*row*/,
                  const ReportRun& /*run*/) const {
  return false;
}

std::string Report::Narrowed(const ReportRow& /*row*/, const ReportRun& /*run*/) const {
  return {};
}

std::vector<EvidenceRow> Report::ReadEvidence(const ReportRun& run, const Sources& sources) {
  std::vector<EvidenceRow> found;
  Recordset rows = run.Store().OpenRecordset(
      "SELECT T.TransactionID, T.Date, A.AccountID, A.Account, PP.PayeeID, PP.Payee, "
      "C.CategoryID, C.Category, T.PaymentID, T.TransferID, T.Amount, Currency, T.Action, "
      "T.Shares, T.Dividend, T.Commission, T.Price FROM " +
      sources.tables + sources.conditions + " Order by [DATE], T.TransactionID");
  for (; !rows.Eof(); rows.MoveNext()) {
    EvidenceRow& row = found.emplace_back();
    row.transactionId = rows.Int(0);
    row.date = rows.Day(1).value_or(corvanta::Date());
    row.accountId = rows.Int(2);
    row.account = rows.Text(3);
    row.payeeId = rows.Int(4);
    row.payee = rows.Text(5);
    row.categoryId = rows.Int(6);
    row.category = rows.Text(7);
    row.paymentId = rows.Int(8);
    row.transferId = rows.Int(9);
    row.amount = rows.Double(10);
    row.currency = rows.Text(11);
    row.action = rows.Int(12);
    row.shares = rows.Double(13);
    row.dividend = rows.Double(14);
    row.commission = rows.Double(15);
    row.price = rows.Double(16);
  }
  return found;
}

bool Report::IsUnder(const EvidenceRow& evidence, const std::string& header) {
  if (header == "Income") return evidence.amount > 0;
  if (header == "Expense") return evidence.amount < 0;
  if (header == "Total" || header == "Actual" || header == "Difference" || header == "Records") {
    return true;
  }
  return header == MonthName(evidence.date.Month());
}

ExplainedRow Report::Explained(const EvidenceRow& evidence, double amount, double rate, int sign) {
  return {evidence.transactionId,
          evidence.date,
          evidence.account,
          evidence.payee,
          evidence.currency,
          amount,
          rate,
          sign,
          amount * rate * sign};
}

ExplainedRow Report::Beside(const std::string& what, const std::string& account,
                            const std::string& currency, double amount, double rate, int sign) {
  return {0, std::nullopt, account, what, currency, amount, rate, sign, amount * rate * sign};
}

std::vector<ExplainedRow> Report::Explain(const ReportRun& run, const ReportTable& table,
                                          const ReportRow& row, std::size_t column) const {
  std::vector<ExplainedRow> explained;
  const std::string& header = table.columns.at(column).header;
  Sources sources = EvidenceOf(run);
  if (row.kind != ReportRowKind::Total) sources.conditions += Narrowed(row, run);
  for (const EvidenceRow& evidence : ReadEvidence(run, sources)) {
    if (run.rates.ShownIn(evidence.currency) != row.currency || !IsUnder(evidence, header))
      continue;
    if (row.kind != ReportRowKind::Total && !IsOf(evidence, row, run)) continue;
    explained.push_back(header == "Records" ? Explained(evidence, 1, 1)
                                            : Explained(evidence, evidence.amount,
                                                        run.rates.RateOf(evidence.currency)));
  }
  return explained;
}

std::vector<std::int64_t> AccountKeys(Connection& store) {
  std::vector<std::int64_t> keys;
  Recordset rows = store.OpenRecordset("Select AccountID from tblAccounts");
  for (; !rows.Eof(); rows.MoveNext()) keys.push_back(rows.Int(0));
  return keys;
}

// By account, each of whose first days is found at once; a line has the day of its whole.
std::optional<corvanta::Date> FirstDayOf(const ReportRun& run) {
  std::optional<corvanta::Date> first;
  for (const std::int64_t account : AccountKeys(run.Store())) {
    const auto day = run.Store()
                         .QueryValue(
                             "Select Top 1 T.[Date] from tblTransactions T WHERE "
                             "T.AllocatedItem = 0 AND T.[Date] > '' AND T.AccountID = " +
                             SqlNumber(account) + " Order by T.[Date]")
                         .AsDate();
    if (day && (!first || *day < *first)) first = day;
  }
  return first;
}

void RowFold::Add(ReportRow row, const std::string& group) {
  const std::string name =
      (group.empty() ? row.groupKey + '\n' + row.part : group) + '\n' + row.currency;
  const auto [place, isNew] = places_.try_emplace(name, table_.rows.size());
  if (isNew) {
    table_.rows.push_back(std::move(row));
    return;
  }
  ReportRow& first = table_.rows[place->second];
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    if (table_.columns[i].HoldsNumbers()) first.cells[i] = Sum(first.cells[i], row.cells[i]);
  }
}

ReportRow GroupRow(const std::string& key, const std::string& currency, std::vector<Value> cells) {
  return {ReportRowKind::Group, key, {}, 0, currency, std::move(cells)};
}

std::string TotalCaption(const std::string& currency) {
  return "Total (" + currency + ")";
}

ReportRow TotalRow(const ReportTable& table, const std::string& caption,
                   const std::string& currency) {
  ReportRow row{ReportRowKind::Total, {}, {}, 0, currency, {}};
  row.cells.resize(table.columns.size());
  row.cells.front() = caption;
  if (const auto place = table.Column("Currency")) row.cells[*place] = currency;
  return row;
}

void AppendTotals(ReportTable& table, const std::vector<std::string>& headers) {
  std::vector<std::size_t> columns;
  for (const std::string& header : headers) columns.push_back(table.Column(header).value());
  std::vector<ReportRow> totals;
  for (const ReportRow& row : table.rows) {
    if (row.kind == ReportRowKind::Total) continue;
    ReportRow* total = nullptr;
    for (ReportRow& each : totals) {
      if (each.currency == row.currency) total = &each;
    }
    if (total == nullptr) {
      total = &totals.emplace_back(TotalRow(table, TotalCaption(row.currency), row.currency));
    }
    for (const std::size_t column : columns) {
      total->cells[column] = Sum(total->cells[column], row.cells[column]);
    }
  }
  for (ReportRow& total : totals) table.rows.push_back(std::move(total));
}

}  // namespace corvanta::inline reports
