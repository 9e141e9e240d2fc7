#include "reports/query/PlainReports.h"

#include <algorithm>
#include <cstdlib>

namespace corvanta {

using Row = PlainRows::Row;
using Schedule = PlainLedger::Schedule;

namespace {

constexpr int kYear = 365;

Date EndOf(const PlainRows& plain) {
  const auto& range = plain.Request().range;
  return range && range->to > plain.Today() ? range->to : plain.Today().AddMonths(3);
}

// Rows that stand for themselves in that account.
std::vector<const Row*> EntriesOf(const PlainLedger::Account& account, const PlainLedger& ledger) {
  std::vector<const Row*> entries;
  for (const Row& row : ledger.rows) {
    if (row.account == account.id && row.parent == 0) entries.push_back(&row);
  }
  return entries;
}

// What an average day of the last year, or of the account's time, brings.
double AverageOf(const std::vector<const Row*>& entries, Date today) {
  int age = kYear;
  double sum = 0;
  bool isFirst = true;
  for (const Row* row : entries) {
    if (row->day > today) continue;
    const int days = today.Serial() - row->day.Serial();
    if (isFirst) age = std::min(kYear, days + 1);
    isFirst = false;
    const bool isUsual = row->schedule == 0 && row->action == 0 && row->transfer == 0;
    if (days < kYear && isUsual) sum += row->amount;
  }
  return sum / age;
}

// What the schedules bring to the account by day; what is overdue comes tomorrow.
void AddSchedules(const PlainLedger::Account& account, const PlainRows& plain,
                  std::map<Date, double>& expected) {
  const auto& accounts = plain.Ledger().accounts;
  const auto currencyOf = [&accounts](std::int64_t id) {
    return std::ranges::find(accounts, id, &PlainLedger::Account::id)->currency;
  };
  const Date tomorrow = plain.Today().AddDays(1);
  for (const Schedule& schedule : plain.Ledger().schedules) {
    // What arrives in another currency is not known: no rates are kept, so it is not sent either.
    const std::int64_t other = schedule.transferAccount;
    if (other != 0 && currencyOf(schedule.account) != currencyOf(other)) continue;
    for (int number = 0; schedule.times == 0 || number < schedule.times; ++number) {
      const Date due = schedule.Due(number);
      if (due > EndOf(plain)) break;
      if (schedule.posted.contains(due)) continue;
      double& day = expected[std::max(due, tomorrow)];
      if (schedule.account == account.id) day += schedule.amount;
      if (other == account.id) day -= schedule.amount;
    }
  }
}

}  // namespace

std::vector<Cells> PlainForecast(const PlainRows& plain) {
  const Date tomorrow = plain.Today().AddDays(1);
  std::vector<Cells> rows;
  for (const auto& account : plain.Ledger().accounts) {
    if (!plain.IsAccountShown(account)) continue;
    const std::vector<const Row*> entries = EntriesOf(account, plain.Ledger());
    double balance = account.opening;
    std::map<Date, double> expected;
    for (const Row* row : entries) {
      if (row->day <= plain.Today()) balance += row->amount;
      if (row->day > plain.Today()) expected[row->day] += row->amount;
    }
    AddSchedules(account, plain, expected);
    for (const WhatIf& each : plain.Request().whatIf) {
      if (each.accountId == account.id) expected[std::max(each.day, tomorrow)] += each.amount;
    }
    const double average = AverageOf(entries, plain.Today());
    const double rate = plain.RateOf(account.currency);
    for (Date day = tomorrow; day <= EndOf(plain); day = day.AddDays(1)) {
      balance += expected[day] + average;
      rows.push_back({account.name, day, expected[day] * rate, average * rate, balance * rate,
                      plain.Shown(account.currency)});
    }
  }
  return rows;
}

}  // namespace corvanta
