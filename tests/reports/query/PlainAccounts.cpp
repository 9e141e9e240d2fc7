#include "reports/query/PlainReports.h"

#include <algorithm>

namespace corvanta {

using Row = PlainRows::Row;

std::vector<Cells> PlainAccountSummary(const PlainRows& plain) {
  const PlainLedger& ledger = plain.Ledger();
  const ReportRequest& request = plain.Request();
  std::vector<PlainLedger::Account> accounts = ledger.accounts;
  std::ranges::sort(accounts, {}, &PlainLedger::Account::name);
  std::vector<Cells> rows;
  for (const auto& account : accounts) {
    if (!plain.IsAccountShown(account)) continue;
    double income = 0;
    double expense = 0;
    double balance = account.opening;
    for (const Row& row : ledger.rows) {
      if (row.account != account.id || row.parent != 0 || !plain.Passes(row)) continue;
      if (request.range && row.day > request.range->to) continue;
      balance += row.amount;
      if (!plain.IsInRange(row)) continue;
      income += MoneyIn(row.amount);
      expense += MoneyOut(row.amount);
    }
    const double rate = plain.RateOf(account.currency);
    rows.push_back({account.name, income * rate, expense * rate, balance * rate,
                    plain.Shown(account.currency)});
  }
  return WithTotals(std::move(rows), 4, 1, 3);
}

std::vector<Cells> PlainCashFlow(const PlainRows& plain) {
  std::map<std::string, std::vector<const Row*>> months;  // by month and currency
  for (const Row* row : plain.Wholes()) {
    const std::string day = row->day.ToIso();
    months[day.substr(0, 4) + day.substr(5, 2) + plain.CurrencyOf(*row)].push_back(row);
  }
  PlainSums sums;
  for (const auto& [key, rows] : months) {
    for (const Row* row : rows) {
      const double money = plain.Money(*row);
      const std::string month = key.substr(0, 6);
      const std::string currency = plain.Shown(plain.CurrencyOf(*row));
      sums.Add(month + currency, {month, MoneyIn(money), MoneyOut(money), money, currency});
    }
  }
  return WithTotals(sums.Get(), 4, 1, 3);
}

std::vector<Cells> PlainTransactions(const PlainRows& plain) {
  const PlainLedger& ledger = plain.Ledger();
  const ReportRequest& request = plain.Request();
  std::map<std::string, double> balances;
  for (const auto& account : ledger.accounts) {
    if (!plain.IsAccountShown(account)) continue;
    balances[plain.Shown(account.currency)] += account.opening * plain.RateOf(account.currency);
  }
  for (const Row& row : ledger.rows) {
    if (!request.range || row.day >= request.range->from || row.parent != 0) continue;
    if (plain.Passes(row)) balances[plain.Shown(plain.CurrencyOf(row))] += plain.Money(row);
  }
  const bool hasKeywords = request.filter.IsSet(FilterKind::Keyword);
  std::vector<Cells> rows;
  for (const Row* row : plain.Chosen([&](const Row& each) {
         if (!hasKeywords) return !ledger.parents.contains(each.id);
         // A split with the keyword is shown whole, and its lines are not.
         if (each.parent == 0) return true;
         const auto parent = std::ranges::find(ledger.rows, each.parent, &Row::id);
         return !plain.HasKeyword(parent->keywords);
       })) {
    const std::string currency = plain.Shown(plain.CurrencyOf(*row));
    const PlainLedger::Category& category = ledger.CategoryOf(*row);
    const double money = plain.Money(*row);
    balances[currency] += money;
    rows.push_back({ledger.AccountOf(*row).name, row->day, ledger.PayeeOf(*row).name,
                    category.sub.empty() ? category.name : category.name + ":" + category.sub, "",
                    row->description,
                    row->rec == 1   ? "R"
                    : row->chk == 1 ? "C"
                                    : "",
                    MoneyIn(money), MoneyOut(money), balances[currency], currency});
  }
  rows = WithTotals(std::move(rows), 10, 7, 8);
  for (Cells& row : rows) {
    if (row.front().Text().starts_with("Total (")) row[9] = balances[row[10].Text()];
  }
  return rows;
}

}  // namespace corvanta
