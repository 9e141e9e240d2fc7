#include "reports/query/AccountTransactions.h"

#include "ledger/Money.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/register/RegisterReader.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace corvanta::inline reports {
namespace {

constexpr std::size_t kDay = 10;  // a stored moment begins with its day, as it is shown

// The rows as they are met, which have no balances yet. They stand still: there may be a million.
class MetRows {
 public:
  struct Row {
    double change = 0;  // what it adds to the balance
    ReportRow row;
  };

  // `moment`: as it is stored.
  Row& Add(std::string_view moment, std::int64_t transactionId) {
    if (keys_.size() % kPage == 0) pages_.emplace_back().reserve(kPage);
    keys_.push_back({std::string(moment), transactionId});
    Row& row = pages_.back().emplace_back();
    row.row.transactionId = transactionId;
    return row;
  }
  [[nodiscard]] std::size_t Count() const { return keys_.size(); }
  [[nodiscard]] Row& At(std::size_t place) { return pages_[place / kPage][place % kPage]; }

  // The places by moment and key, as the statement asks for, which is visited in any order: the
  // library would carry every text of every row through its sorting. Most rows are in order
  // already, so that runs of them are found and merged.
  [[nodiscard]] std::vector<std::size_t> InOrder() const {
    std::vector<std::size_t> places(keys_.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::vector<std::size_t> ends = Runs();
    while (ends.size() > 1) {
      places = MergedPairs(places, ends);
      std::size_t pairs = 0;
      for (std::size_t run = 1; run < ends.size(); run += 2) ends[pairs++] = ends[run];
      if (ends.size() % 2 == 1) ends[pairs++] = ends.back();
      ends.resize(pairs);
    }
    return places;
  }

 private:
  struct Key {
    std::string moment;
    std::int64_t transactionId = 0;
    auto operator<=>(const Key&) const = default;
  };

  // Where those end that follow each other in order.
  [[nodiscard]] std::vector<std::size_t> Runs() const {
    std::vector<std::size_t> ends;
    for (std::size_t next = 1; next < keys_.size(); ++next) {
      if (keys_[next] < keys_[next - 1]) ends.push_back(next);
    }
    if (!keys_.empty()) ends.push_back(keys_.size());
    return ends;
  }

  // The first run with the second, the third with the fourth ...
  [[nodiscard]] std::vector<std::size_t> MergedPairs(const std::vector<std::size_t>& places,
                                                     const std::vector<std::size_t>& ends) const {
    const auto isBefore = [this](std::size_t one, std::size_t other) {
      return keys_[one] < keys_[other];
    };
    std::vector<std::size_t> merged;
    merged.reserve(places.size());
    auto begin = places.begin();
    for (std::size_t run = 0; run < ends.size(); run += 2) {
      const auto middle = places.begin() + static_cast<std::ptrdiff_t>(ends[run]);
      const std::size_t last = std::min(run + 1, ends.size() - 1);
      const auto end = places.begin() + static_cast<std::ptrdiff_t>(ends[last]);
      std::merge(begin, middle, middle, end, std::back_inserter(merged), isBefore);
      begin = end;
    }
    return merged;
  }

  static constexpr std::size_t kPage = 1024;
  std::vector<std::vector<Row>> pages_;
  std::vector<Key> keys_;
};

void Meet(const ReportRun& run, const VisitedRow& row, MetRows& rows) {
  const double rate = row.Double(16);
  const double expense = row.Double(2) * rate;
  const double income = row.Double(3) * rate;
  const std::string_view moment = row.Text(4);
  MetRows::Row& met = rows.Add(moment, row.Int(1));
  met.change = income + expense;
  met.row.currency = run.rates.ShownIn(std::string(row.Text(15)), rate);
  // One by one: a list in braces would copy each text once more.
  std::vector<Value>& cells = met.row.cells;
  constexpr std::size_t kCells = 11;
  cells.reserve(kCells);
  const std::string_view day = moment.substr(0, kDay);
  cells.emplace_back(row.Text(0));
  cells.push_back(corvanta::Date::FromIso(day) ? Value(day) : Value());
  cells.emplace_back(row.Text(14));
  cells.emplace_back(CategoryPath(std::string(row.Text(11)), std::string(row.Text(12))));
  cells.emplace_back(row.Text(6));
  cells.emplace_back(row.Text(7));
  cells.emplace_back(StatusLetter(row.Int(8), row.Int(9)));
  cells.emplace_back(RoundMoney(income));
  cells.emplace_back(RoundMoney(expense));
  cells.emplace_back();
  cells.emplace_back(met.row.currency);
}

std::string OfAccounts(const ReportRun& run) {
  if (!run.request.filter.IsSet(FilterKind::Account)) return {};
  return " AND A.AccountID IN (" + run.request.filter.List(FilterKind::Account) + ") ";
}

MetRows ReadRows(const ReportRun& run, const Report::Sources& sources) {
  MetRows rows;
  Recordset::Visit(
      run.Store(),
      "SELECT A.Account, T.TransactionID, iif(Amount < 0,Amount,0) as [Expense],  iif(Amount >= "
      "0,Amount,0) as [Income], T.Date, T.Action, T.Reference, T.Description, T.BankChk, "
      "T.BankRec, T.TransferId, C.Category, C.SubCategory, P.Payment, PP.Payee, CU.Currency, " +
          run.exchange + " AS Exchange FROM " + sources.tables + sources.conditions +
          " Order by [DATE], T.TransactionID",
      [&](const VisitedRow& row) { Meet(run, row, rows); });
  return rows;
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
  double unknown = 0;
  const auto balanceIn = [&](const std::string& currency) -> double& {
    const auto known = std::ranges::find(balances, currency, &Opening::currency);
    return known == balances.end() ? unknown : known->balance;
  };
  const std::size_t column = table.Column("Balance").value();
  MetRows rows = ReadRows(run, EvidenceOf(run));
  table.rows.reserve(rows.Count() + balances.size());
  for (const std::size_t place : rows.InOrder()) {
    MetRows::Row& met = rows.At(place);
    double& balance = balanceIn(met.row.currency);
    balance = RoundMoney(balance + met.change);
    met.row.cells[column] = balance;
    table.rows.push_back(std::move(met.row));
  }
  AppendTotals(table, {"Income", "Expense"});
  for (ReportRow& row : table.rows) {
    if (row.kind == ReportRowKind::Total) row.cells[column] = balanceIn(row.currency);
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

std::string AccountTransactions::Narrowed(const ReportRow& row, const ReportRun& /*run*/) const {
  return " AND T.TransactionID = " + SqlNumber(row.transactionId);
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
  Sources sources = EvidenceOf(run);
  const auto day = row.cells[table.Column("Date").value()].AsDate();
  // What has no day stands before all others.
  if (day) sources.conditions += " AND (T.[Date] <= " + SqlEndOf(*day) + " OR IsNull(T.[Date]))";
  add(ReadEvidence(run, sources));
  return explained;
}

}  // namespace corvanta::inline reports
