#include "reports/query/InvestmentGains.h"

#include "ledger/Money.h"
#include "ledger/investments/InvestmentRecord.h"
#include "reports/query/ReportSql.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

namespace corvanta::inline reports {
namespace {

std::optional<corvanta::Date> EndOf(const ReportRun& run) {
  return run.request.range ? std::optional(run.request.range->to) : std::nullopt;
}

struct Investment {
  std::int64_t key = 0;
  std::string name;
  std::string symbol;
  std::string description;
  std::string currency;
  double rate = 1;
  double price = 0;
};

// The latest price; 0 without one.
double LastPrice(const ReportRun& run, std::int64_t investment) {
  const auto end = EndOf(run);
  return run.Store()
      .QueryValue("Select Top 1 Price from tblHistory WHERE PayeeId = " + SqlNumber(investment) +
                  (end ? " AND [Date] <= " + SqlEndOf(*end) : std::string()) +
                  " Order by [Date] Desc, HistoryID Desc")
      .Double();
}

std::vector<Investment> ReadInvestments(const ReportRun& run) {
  std::vector<Investment> found;
  const RowFilter& filter = run.request.filter;
  const std::string some = filter.IsSet(FilterKind::Investment)
                               ? "AND P.PayeeID IN (" + filter.List(FilterKind::Investment) + ") "
                               : std::string();
  {
    Recordset rows = run.Store().OpenRecordset(
        "Select P.PayeeID as InvestID, P.Payee as Investment, P.CurrencyID, CC.Currency, "
        "P.DataID, P.[Conversion], P.Symbol, P.Description," +
        run.exchange +
        " As Exchange From tblPayees P INNER JOIN tblCurrency CC ON CC.CurrencyID = P.CurrencyID "
        "WHERE Investment = 1 " +
        some + " Order By P.Payee");
    for (; !rows.Eof(); rows.MoveNext()) {
      found.push_back({rows.Int("InvestID"), rows.Text("Investment"), rows.Text("Symbol"),
                       rows.Text("Description"), rows.Text("Currency"), rows.Double("Exchange"),
                       0});
    }
  }
  for (Investment& each : found) each.price = LastPrice(run, each.key);
  return found;
}

struct Holding {
  double units = 0;
  double money = 0;  // received less paid
};

// By investment what the accounts of each currency hold of it, in that currency.
using Holdings = std::unordered_map<std::int64_t, std::map<std::string, Holding>>;

Holdings ReadHoldings(const ReportRun& run) {
  Holdings holdings;
  const std::string tables = run.clause.WithKeywords(kInvestmentTables);
  const std::string conditions = run.clause.WhereUntil(EndOf(run), ReportClause::Payments::Joined);
  Recordset::Visit(run.Store(),
                   "SELECT T.Action, T.Shares, Amount, T.Price, T.PayeeID, CU.Currency FROM " +
                       tables + conditions + "AND PP.Investment = 1 ",
                   [&holdings](const VisitedRow& row) {
                     Holding& holding = holdings[row.Int(4)][std::string(row.Text(5))];
                     holding.units += ShareSign(row.Int(0)) * row.Double(1);
                     holding.money += row.Double(2);
                   });
  return holdings;
}

// The currencies that an investment has a row of, its own one first; that one alone where no
// account has anything of it.
std::vector<std::string> CurrenciesOf(const Investment& investment,
                                      const std::map<std::string, Holding>& holdings) {
  std::vector<std::string> currencies;
  for (const auto& [currency, holding] : holdings) currencies.push_back(currency);
  if (currencies.empty()) currencies.push_back(investment.currency);
  std::ranges::stable_partition(
      currencies, [&](const std::string& each) { return each == investment.currency; });
  return currencies;
}

double RateIn(const ReportRun& run, const Investment& investment, const std::string& currency) {
  return currency == investment.currency ? investment.rate : run.rates.RateOf(currency);
}

}  // namespace

int ShareSign(std::int64_t action) {
  const bool goes = action == static_cast<std::int64_t>(InvestAction::Sell) ||
                    action == static_cast<std::int64_t>(InvestAction::RemoveShares);
  return goes ? -1 : 1;
}

std::string InvestmentGains::Currencies(const ReportClause& /*clause*/) const {
  return "SELECT Currency, CU.CurrencyID From tblPayees P INNER JOIN tblCurrency CU ON "
         "CU.CurrencyID = P.CurrencyID WHERE Investment = 1 GROUP BY CU.CurrencyID, Currency";
}

std::string InvestmentGains::MoreCurrencies() const {
  return "SELECT Currency, CU.CurrencyID From tblAccounts A INNER JOIN tblCurrency CU ON "
         "A.CurrencyId = CU.CurrencyID WHERE A.AccountID IN (Select T.AccountID from "
         "tblTransactions T INNER JOIN tblPayees P ON T.PayeeID = P.PayeeID WHERE Investment = 1) "
         "GROUP BY CU.CurrencyID, Currency";
}

void InvestmentGains::Fill(const ReportRun& run, ReportTable& table) const {
  Holdings holdings = ReadHoldings(run);
  for (const Investment& each : ReadInvestments(run)) {
    std::map<std::string, Holding>& held = holdings[each.key];
    for (const std::string& currency : CurrenciesOf(each, held)) {
      const Holding& holding = held[currency];
      const double total = holding.units * each.price;
      const double rate = RateIn(run, each, currency);
      const std::string shown = run.rates.ShownIn(currency, rate);
      ReportRow row =
          GroupRow(SqlNumber(each.key), shown,
                   {each.name, each.symbol, shown, each.description, RoundMoney(each.price * rate),
                    RoundMoney(holding.units), RoundMoney(total * rate),
                    RoundMoney((total + holding.money) * rate)});
      row.part = currency;
      table.rows.push_back(std::move(row));
    }
  }
  AppendTotals(table, {"Total", "Gain"});
}

Report::Sources InvestmentGains::EvidenceOf(const ReportRun& run) const {
  return {
      run.clause.WithKeywords(kInvestmentTables),
      run.clause.WhereUntil(EndOf(run), ReportClause::Payments::Joined) + "AND PP.Investment = 1 "};
}

bool InvestmentGains::IsOf(const EvidenceRow& evidence, const ReportRow& row,
                           const ReportRun& /*run*/) const {
  return SqlNumber(evidence.payeeId) == row.groupKey;
}

std::string InvestmentGains::Narrowed(const ReportRow& row, const ReportRun& /*run*/) const {
  return " AND PP.PayeeID = " + row.groupKey;
}

std::vector<ExplainedRow> InvestmentGains::Explain(const ReportRun& run, const ReportTable& table,
                                                   const ReportRow& row, std::size_t column) const {
  const std::string& header = table.columns.at(column).header;
  const bool isTotal = row.kind == ReportRowKind::Total;
  Sources sources = EvidenceOf(run);
  if (!isTotal) sources.conditions += Narrowed(row, run);
  const std::vector<EvidenceRow> evidence = ReadEvidence(run, sources);
  const bool hasWorth = header == "Total" || header == "Gain";
  std::vector<ExplainedRow> explained;
  for (const Investment& each : ReadInvestments(run)) {
    if (!isTotal && SqlNumber(each.key) != row.groupKey) continue;
    if (header == "Last Price" && !isTotal) {
      explained.push_back(
          Beside("Last price", {}, row.part, each.price, RateIn(run, each, row.part)));
    }
    for (const EvidenceRow& part : evidence) {
      const double rate = RateIn(run, each, part.currency);
      const bool isOfRow = isTotal ? run.rates.ShownIn(part.currency, rate) == row.currency
                                   : part.currency == row.part;
      if (part.payeeId != each.key || !isOfRow) continue;
      if (header == "Quantity" && !isTotal) {
        explained.push_back(Explained(part, part.shares, 1, ShareSign(part.action)));
      }
      if (hasWorth && part.shares != 0 && each.price != 0) {
        explained.push_back(
            Explained(part, part.shares, each.price * rate, ShareSign(part.action)));
      }
      if (header == "Gain" && part.amount != 0) {
        explained.push_back(Explained(part, part.amount, rate));
      }
    }
  }
  return explained;
}

}  // namespace corvanta::inline reports
