#include "reports/query/PlainReports.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace corvanta {

using Row = PlainRows::Row;

std::vector<Cells> PlainGains(const PlainRows& plain) {
  const PlainLedger& ledger = plain.Ledger();
  const ReportRequest& request = plain.Request();
  std::vector<Cells> rows;
  for (const auto& payee : ledger.payees) {
    if (!payee.isInvestment) continue;
    if (!PlainRows::In(request.filter.Keys(FilterKind::Investment), payee.id)) continue;
    const bool isKnown = !request.range || payee.priceDay <= request.range->to;
    const double price = isKnown ? payee.price : payee.oldPrice;
    // What each account's currency has of it; its own one where nothing has any.
    std::map<std::string, std::pair<double, double>> held;  // units and money
    for (const Row& row : ledger.rows) {
      if (row.payee != payee.id || !plain.Passes(row)) continue;
      if (request.range && row.day > request.range->to) continue;
      auto& [units, money] = held[plain.CurrencyOf(row)];
      units += UnitsOf(row);
      money += row.amount;
    }
    if (held.empty()) held[payee.currency] = {};
    const auto add = [&](const std::string& currency) {
      const auto [units, money] = held.at(currency);
      const double rate = plain.RateOf(currency);
      rows.push_back({payee.name, payee.symbol, plain.Shown(currency), "", price * rate, units,
                      units * price * rate, (units * price + money) * rate});
    };
    if (held.contains(payee.currency)) add(payee.currency);
    for (const auto& each : held) {
      if (each.first != payee.currency) add(each.first);
    }
  }
  return WithTotals(std::move(rows), 2, 6, 7);
}

std::vector<Cells> PlainTrades(const PlainRows& plain) {
  const PlainLedger& ledger = plain.Ledger();
  std::vector<Cells> rows;
  for (const auto& payee : ledger.payees) {
    PlainSums totals;
    for (const Row& row : ledger.rows) {
      if (!payee.isInvestment || row.payee != payee.id || !plain.Passes(row) ||
          !plain.IsInRange(row)) {
        continue;
      }
      const std::string currency = plain.Shown(plain.CurrencyOf(row));
      const double rate = plain.RateOf(plain.CurrencyOf(row));
      const double units = UnitsOf(row);
      constexpr const char* kActions[] = {
          "", "Buy", "Sell", "Dividend", "Reinvest Dividend", "Add Shares", "Remove Shares"};
      rows.push_back({ledger.AccountOf(row).name, row.day, kActions[row.action], payee.symbol,
                      row.description, row.dividend * rate, row.price * rate, units,
                      row.commission * rate, row.amount * rate, currency});
      totals.Add(currency, {"Total for " + payee.name, "", "", "", "", row.dividend * rate, "",
                            units, row.commission * rate, row.amount * rate, currency});
    }
    for (Cells& total : totals.Get()) rows.push_back(std::move(total));
  }
  return rows;
}

std::vector<Cells> PlainNetWorth(const PlainRows& plain) {
  const PlainLedger& ledger = plain.Ledger();
  const ReportRequest& request = plain.Request();
  Date first = ledger.rows.front().day;
  Date last = plain.Today();
  if (request.range) {
    first = request.range->from;
    last = request.range->to;
  }
  PlainSums sums;
  for (Date month = first.AddDays(1 - first.Day()); month <= last; month = month.AddMonths(1)) {
    const Date day = std::min(month.AddMonths(1).AddDays(-1), last);
    const std::string key = month.ToIso().substr(0, 4) + month.ToIso().substr(5, 2);
    for (const auto& account : ledger.accounts) {
      if (!plain.IsAccountShown(account)) continue;
      double cash = account.opening;
      double held = 0;
      for (const Row& row : ledger.rows) {
        if (row.account != account.id || row.parent != 0 || row.day > day || !plain.Passes(row))
          continue;
        const PlainLedger::Payee& payee = ledger.PayeeOf(row);
        const double price = payee.priceDay <= day ? payee.price : payee.oldPrice;
        cash += row.amount;
        held += UnitsOf(row) * price;
      }
      const double rate = plain.RateOf(account.currency);
      const std::string currency = plain.Shown(account.currency);
      sums.Add(key + currency, {key, cash * rate, held * rate, (cash + held) * rate, currency});
    }
  }
  return sums.Get();
}

}  // namespace corvanta
