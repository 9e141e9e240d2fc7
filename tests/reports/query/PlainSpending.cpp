#include "reports/query/PlainReports.h"

#include <algorithm>
#include <array>
#include <functional>

namespace corvanta {

using Row = PlainRows::Row;

namespace {

// Name, sub-category, what tells rows of one name apart.
std::array<std::string, 3> NamesOf(const Row& row, const PlainRows& plain) {
  const PlainLedger& ledger = plain.Ledger();
  const ReportRequest& request = plain.Request();
  const PlainLedger::Category& category = ledger.CategoryOf(row);
  switch (request.report) {
    case 5:
    case 6:
      return {category.name, request.foldsSubCategories ? "" : category.sub, ""};
    case 7:
      return {ledger.PayeeOf(row).name, "", std::to_string(row.transfer)};
    case 8:
      return {ledger.PayeeOf(row).name, "", ""};
    default:
      return {ledger.payments.at(row.payment), "", ""};
  }
}

bool IsByCategory(const PlainRows& plain) {
  return plain.Request().report == 5 || plain.Request().report == 6;
}

// The figures of each row under its names; `figures` gives those of one transaction.
std::vector<Cells> ByName(const PlainRows& plain, const std::function<Cells(const Row&)>& figures) {
  PlainSums sums;
  for (const Row* row : IsByCategory(plain) ? plain.Lines() : plain.Wholes()) {
    const auto names = NamesOf(*row, plain);
    const std::string currency = plain.Shown(plain.CurrencyOf(*row));
    Cells cells = {names[0]};
    if (IsByCategory(plain)) cells.emplace_back(names[1]);
    for (Value& figure : figures(*row)) cells.push_back(std::move(figure));
    cells.emplace_back(currency);
    sums.Add(names[0] + '\n' + names[1] + '\n' + names[2] + '\n' + currency, cells);
  }
  return sums.Get();
}

}  // namespace

std::vector<Cells> PlainSpending(const PlainRows& plain) {
  std::vector<Cells> rows = ByName(plain, [&](const Row& row) {
    const double money = plain.Money(row);
    return Cells{1, MoneyIn(money), MoneyOut(money), money};
  });
  const std::size_t first = IsByCategory(plain) ? 2 : 1;
  return WithTotals(std::move(rows), first + 4, first, first + 3);
}

std::vector<Cells> PlainMonthly(const PlainRows& plain) {
  std::vector<Cells> rows = ByName(plain, [&](const Row& row) {
    Cells months(13, Value(0.0));
    months[static_cast<std::size_t>(row.day.Month()) - 1] = plain.Money(row);
    months.back() = plain.Money(row);
    return months;
  });
  const std::size_t first = IsByCategory(plain) ? 2 : 1;
  return WithTotals(std::move(rows), first + 13, first, first + 12);
}

std::vector<Cells> PlainComparison(const PlainRows& plain) {
  const PlainLedger& ledger = plain.Ledger();
  const ReportRequest& request = plain.Request();
  Period now{*Date::FromIso("2026-01-01"), *Date::FromIso("2026-12-31")};
  Period before{*Date::FromIso("2025-01-01"), *Date::FromIso("2025-12-31")};
  if (request.range) {
    now = *request.range;
    before.to = now.from.AddDays(-1);
    before.from = before.to.AddDays(now.from.Serial() - now.to.Serial());
  }
  if (request.otherRange) before = *request.otherRange;
  PlainSums sums;
  for (const auto& category : ledger.categories) {
    for (const Row& row : ledger.rows) {
      if (row.category != category.id || ledger.parents.contains(row.id)) continue;
      const bool isNow = row.day >= now.from && row.day <= now.to;
      const bool isBefore = row.day >= before.from && row.day <= before.to;
      if ((!isNow && !isBefore) || !plain.Passes(row)) continue;
      const double money = plain.Money(row);
      const std::string sub = request.foldsSubCategories ? "" : category.sub;
      const std::string currency = plain.Shown(plain.CurrencyOf(row));
      sums.Add(category.name + "\n" + sub + "\n" + currency,
               {category.name, sub, isNow ? money : 0.0, isBefore ? money : 0.0,
                (isNow ? money : 0.0) - (isBefore ? money : 0.0), currency});
    }
  }
  return WithTotals(sums.Get(), 5, 2, 4);
}

}  // namespace corvanta
