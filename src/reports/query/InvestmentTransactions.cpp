#include "reports/query/InvestmentTransactions.h"

#include "ledger/Money.h"
#include "ledger/investments/InvestmentRecord.h"
#include "reports/query/InvestmentGains.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline reports {
namespace {

constexpr const char* kSummed[] = {"Dividend", "Quantity", "Commission", "Total"};

// Closes the group of an investment: a total for each currency that its rows are in.
class GroupTotals {
 public:
  explicit GroupTotals(ReportTable& table) : table_(table) {}

  void Add(const ReportRow& row) {
    ReportRow& total = TotalOf(row.currency);
    for (const char* header : kSummed) {
      const std::size_t column = table_.Column(header).value();
      total.cells[column] = RoundMoney(total.cells[column].Double() + row.cells[column].Double());
    }
  }
  void Close(const std::string& investment, std::int64_t key) {
    for (ReportRow& total : totals_) {
      total.cells.front() = "Total for " + investment;
      total.part = SqlNumber(key);
      table_.rows.push_back(std::move(total));
    }
    totals_.clear();
  }

 private:
  ReportRow& TotalOf(const std::string& currency) {
    for (ReportRow& total : totals_) {
      if (total.currency == currency) return total;
    }
    return totals_.emplace_back(TotalRow(table_, {}, currency));
  }

  ReportTable& table_;
  std::vector<ReportRow> totals_;
};

}  // namespace

void InvestmentTransactions::Fill(const ReportRun& run, ReportTable& table) const {
  const Sources sources = EvidenceOf(run);
  Recordset rows = run.Store().OpenRecordset(
      "SELECT T.TransactionID, PP.Symbol, T.Dividend,T.Price,T.Shares,T.Commission, Amount, "
      "T.Date, T.Action, T.Description, C.Category, P.Payment, PP.Payee, A.Account, CU.Currency," +
      run.exchange + " AS Exchange, PP.PayeeID FROM " + sources.tables + sources.conditions +
      " Order By PP.Payee, PP.PayeeID, [DATE], T.TransactionID");
  GroupTotals totals(table);
  std::int64_t group = 0;
  std::string investment;
  for (; !rows.Eof(); rows.MoveNext()) {
    if (rows.Int("PayeeID") != group) totals.Close(investment, group);
    group = rows.Int("PayeeID");
    investment = rows.Text("Payee");
    const double rate = rows.Double("Exchange");
    const std::string currency = run.rates.ShownIn(rows.Text("Currency"), rate);
    const auto day = rows.Day("Date");
    ReportRow row{ReportRowKind::Plain, SqlNumber(rows.Int(0)), {}, rows.Int(0), currency, {}};
    row.cells = {rows.Text("Account"),
                 day ? Value(*day) : Value(),
                 ActionName(rows.Int("Action")),
                 rows.Text("Symbol"),
                 rows.Text("Description"),
                 RoundMoney(rows.Double("Dividend") * rate),
                 RoundMoney(rows.Double("Price") * rate),
                 RoundMoney(ShareSign(rows.Int("Action")) * rows.Double("Shares")),
                 RoundMoney(rows.Double("Commission") * rate),
                 RoundMoney(rows.Double("Amount") * rate),
                 currency};
    totals.Add(row);
    table.rows.push_back(std::move(row));
  }
  totals.Close(investment, group);
}

Report::Sources InvestmentTransactions::EvidenceOf(const ReportRun& run) const {
  return {run.clause.WithKeywords(kInvestmentTables),
          run.clause.Where(ReportClause::Payments::Joined) + "AND PP.Investment = 1 "};
}

bool InvestmentTransactions::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                                  const ReportRun& /*run*/) const {
  return evidence.transactionId == row.transactionId;
}

// A total has its investment's key.
std::string InvestmentTransactions::Narrowed(const ReportRow& row, const ReportRun& /*run*/) const {
  if (row.kind == ReportRowKind::Total) return " AND PP.PayeeID = " + row.part;
  return " AND T.TransactionID = " + SqlNumber(row.transactionId);
}

std::vector<ExplainedRow> InvestmentTransactions::Explain(const ReportRun& run,
                                                          const ReportTable& table,
                                                          const ReportRow& row,
                                                          std::size_t column) const {
  const std::string& header = table.columns.at(column).header;
  const bool isTotal = row.kind == ReportRowKind::Total;
  std::vector<ExplainedRow> explained;
  Sources sources = EvidenceOf(run);
  sources.conditions += Narrowed(row, run);
  for (const EvidenceRow& part : ReadEvidence(run, sources)) {
    if (run.rates.ShownIn(part.currency) != row.currency) continue;
    if (isTotal ? SqlNumber(part.payeeId) != row.part : !IsOf(part, row, run)) continue;
    const double rate = run.rates.RateOf(part.currency);
    if (header == "Dividend") explained.push_back(Explained(part, part.dividend, rate));
    if (header == "Price" && !isTotal) explained.push_back(Explained(part, part.price, rate));
    if (header == "Quantity") {
      explained.push_back(Explained(part, part.shares, 1, ShareSign(part.action)));
    }
    if (header == "Commission") explained.push_back(Explained(part, part.commission, rate));
    if (header == "Total") explained.push_back(Explained(part, part.amount, rate));
  }
  return explained;
}

}  // namespace corvanta::inline reports
