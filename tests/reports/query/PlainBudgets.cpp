#include "reports/query/PlainReports.h"

#include <algorithm>

namespace corvanta {

using Row = PlainRows::Row;

namespace {

// The categories, folded where that is asked for, with their rows of some days.
struct Group {
  PlainLedger::Category category;
  std::set<std::int64_t> keys;
  std::vector<const Row*> rows;
};

std::vector<Group> GroupsOf(const PlainRows& plain, const std::optional<Period>& days) {
  const bool folds = plain.Request().foldsSubCategories;
  std::vector<Group> groups;
  for (const auto& category : plain.Ledger().categories) {
    const bool joins = folds && !groups.empty() && groups.back().category.name == category.name;
    if (!joins) groups.push_back({category, {}, {}});
    groups.back().keys.insert(category.id);
    if (folds) groups.back().category.sub = "";
  }
  for (const Row& row : plain.Ledger().rows) {
    if (plain.Ledger().parents.contains(row.id) || !plain.Passes(row)) continue;
    if (days && (row.day < days->from || row.day > days->to)) continue;
    for (Group& group : groups) {
      if (group.keys.contains(row.category)) group.rows.push_back(&row);
    }
  }
  return groups;
}

std::map<std::string, double> ActualOf(const Group& group, const PlainRows& plain) {
  std::map<std::string, double> actual;
  for (const Row* row : group.rows) {
    actual[plain.Shown(plain.CurrencyOf(*row))] += plain.Money(*row);
  }
  return actual;
}

int PeriodDaysOf(int periodId, Date start) {
  switch (periodId) {
    case 4:
      return 14;
    case 6:
      return start.AddMonths(1).Serial() - start.Serial();
    default:
      return start.AddMonths(12).Serial() - start.Serial();
  }
}

double PlanOf(const Group& group, Date start, int days, const PlainRows& plain) {
  double plan = 0;
  for (const auto& category : plain.Ledger().categories) {
    if (!group.keys.contains(category.id) || category.budget == 0) continue;
    if (!PlainRows::In(plain.Request().filter.Keys(FilterKind::Category), category.id)) continue;
    plan += category.type * category.budget * days / PeriodDaysOf(category.periodId, start);
  }
  return plan * plain.RateOf(plain.PlansKeptIn());
}

// The span of the data is that of the accounts chosen, closed or not.
bool IsOfSpan(const Row& row, const PlainRows& plain) {
  const auto& some = plain.Request().filter.Keys(FilterKind::Account);
  if (!some.empty()) return PlainRows::In(some, row.account);
  return plain.IsAccountShown(plain.Ledger().AccountOf(row));
}

Period MonthOf(const PlainRows& plain) {
  const auto& range = plain.Request().range;
  const Date today = plain.Today();
  const Date day = range ? std::min(std::max(today, range->from), range->to) : today;
  const Date first = day.AddDays(1 - day.Day());
  return {first, first.AddMonths(1).AddDays(-1)};
}

// What the months of the year before that one left of each group, in the home currency.
std::vector<double> CarriedOver(const PlainRows& plain, const Period& month) {
  std::vector<double> carried(plain.Ledger().categories.size(), 0.0);
  if (!plain.Request().carriesOver) return carried;
  Date first = plain.Ledger().rows.front().day;
  for (int number = 1; number < month.from.Month(); ++number) {
    const Date from = *Date::FromYmd(month.from.Year(), number, 1);
    const Period before{from, from.AddMonths(1).AddDays(-1)};
    if (before.to < first) continue;
    const int days = before.to.Serial() - before.from.Serial() + 1;
    std::size_t place = 0;
    for (const Group& group : GroupsOf(plain, before)) {
      const double plan = PlanOf(group, from, days, plain);
      if (plan != 0) carried[place] += plan - ActualOf(group, plain)[plain.Home()];
      ++place;
    }
  }
  return carried;
}

}  // namespace

std::vector<Cells> PlainBudget(const PlainRows& plain) {
  const auto& range = plain.Request().range;
  Date start;
  int days = 0;
  if (range) {
    start = range->from;
    days = range->to.Serial() - start.Serial() + 1;
  } else {
    std::vector<Date> all;
    for (const Row& row : plain.Ledger().rows) {
      if (IsOfSpan(row, plain)) all.push_back(row.day);
    }
    if (!all.empty()) start = *std::ranges::min_element(all);
    if (!all.empty()) days = std::ranges::max_element(all)->Serial() - start.Serial();
  }
  const std::string home = plain.Home();
  std::map<std::string, double> unallocated;
  std::vector<Cells> rows;
  for (const Group& group : GroupsOf(plain, range)) {
    const double plan = PlanOf(group, start, days, plain);
    std::map<std::string, double> actual = ActualOf(group, plain);
    const auto add = [&](const std::string& currency, double planned, double money) {
      rows.push_back(
          {group.category.name, group.category.sub, planned, money, money - planned, currency});
    };
    const bool isHome = actual.contains(home);
    if (plan != 0 || isHome) {
      add(home, plan, isHome ? actual[home] : 0);
      unallocated[home] += 0;
    }
    for (const auto& [currency, money] : actual) {
      if (currency != home) add(currency, 0, money);
      if (plan == 0) unallocated[currency] += money;
    }
  }
  if (unallocated.empty()) unallocated[home] = 0;
  std::vector<Cells> result = rows;
  for (const auto& [currency, money] : unallocated) {
    result.push_back({"Total (Unallocated)", "", "", money, "", currency});
  }
  const std::vector<Cells> totalled = WithTotals(rows, 5, 2, 4);
  result.insert(result.end(), totalled.begin() + static_cast<std::ptrdiff_t>(rows.size()),
                totalled.end());
  return result;
}

std::vector<Cells> PlainBudgetOfMonth(const PlainRows& plain) {
  const Period month = MonthOf(plain);
  const int days = month.to.Serial() - month.from.Serial() + 1;
  const std::string home = plain.Home();
  const std::vector<double> carried = CarriedOver(plain, month);
  std::vector<Cells> rows;
  std::size_t place = 0;
  for (const Group& group : GroupsOf(plain, month)) {
    const double plan = PlanOf(group, month.from, days, plain);
    const std::map<std::string, double> actual = ActualOf(group, plain);
    const auto add = [&](const std::string& currency, double planned, double over, double money) {
      rows.push_back({group.category.name, group.category.sub, planned, over, money,
                      money - planned - over, currency});
    };
    const bool isWanted = std::ranges::any_of(group.keys, [&](std::int64_t key) {
      return PlainRows::In(plain.Request().filter.Keys(FilterKind::Category), key);
    });
    const bool isForPlanning = plain.Request().withAllCategories && isWanted;
    if (plan != 0 || isForPlanning || actual.contains(home)) {
      add(home, plan, carried[place], actual.contains(home) ? actual.at(home) : 0);
    }
    for (const auto& [currency, money] : actual) {
      if (currency != home) add(currency, 0, 0, money);
    }
    ++place;
  }
  return WithTotals(std::move(rows), 6, 2, 5);
}

}  // namespace corvanta
