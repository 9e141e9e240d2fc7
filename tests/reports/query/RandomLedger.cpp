#include "reports/query/PlainLedger.h"

#include <algorithm>

namespace corvanta {
namespace {

constexpr const char* kWords[] = {"Weekly shop", "Refund", "Gift", "Trip", ""};

class Maker {
 public:
  Maker(std::mt19937& random, int entries) : random_(random) {
    ledger_.accounts = {{1, "Bank", 100.5, "EUR", false},
                        {2, "Broker", 0, "USD", false},
                        {3, "Attic", 12.25, "EUR", true},
                        {4, "Cash", -7, "GBP", false},
                        {5, "Dollars", 50, "USD", false}};
    ledger_.categories = {{12, "Car", "", -1, 0, 0},         {11, "Car", "Fuel", -1, 80, 6},
                          {1, "Credit", "", 1, 0, 0},        {2, "Debit", "", -1, 0, 0},
                          {15, "Food", "", -1, 0, 0},        {13, "Food", "Shop", -1, 25, 4},
                          {14, "Food", "Wine", -1, 600, 11}, {16, "Wages", "", 1, 2000, 6}};
    const Date old = *Date::FromIso("2020-01-01");
    ledger_.payees = {{31, "Acme", true, "ACM", 12.5, *Date::FromIso("2025-06-01"), 10, "USD"},
                      {21, "Baker", false, "", 0, old, 0, ""},
                      {32, "Fund", true, "FND", 101, *Date::FromIso("2026-03-01"), 90, "EUR"},
                      {22, "Grocer", false, "", 0, old, 0, ""},
                      {23, "Owner", false, "", 0, old, 0, ""},
                      {33, "Zinc", true, "ZNC", 0, old, 0, "GBP"}};
    ledger_.payments = {{1, "Card"}, {2, "Import"}, {3, "Order"}};
    for (int i = 0; i < entries; ++i) AddEntry();
    for (int i = 0; i < 8; ++i) AddSchedule();
    std::ranges::sort(ledger_.rows, [](const auto& first, const auto& second) {
      return first.day == second.day ? first.id < second.id : first.day < second.day;
    });
  }

  PlainLedger Get() { return std::move(ledger_); }

 private:
  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
  double Amount() { return (Below(200000) - 100000) / 100.0; }

  PlainLedger::Row Plain() {
    PlainLedger::Row row;
    row.id = ++key_;
    row.account = ledger_.accounts[static_cast<std::size_t>(Below(5))].id;
    row.category = ledger_.categories[static_cast<std::size_t>(Below(8))].id;
    row.payment = 1 + Below(3);
    row.payee = 21 + Below(3);
    row.amount = Amount();
    row.day = Date::FromIso("2025-01-01")->AddDays(Below(700));
    row.rec = Below(4) == 0 ? 1 : 0;
    row.chk = row.rec == 1 ? 1 : Below(2);
    row.description = kWords[Below(5)];
    if (Below(3) == 0) row.keywords.insert(1);
    if (Below(4) == 0) row.keywords.insert(2);
    return row;
  }

  void AddEntry() {
    PlainLedger::Row row = Plain();
    switch (Below(6)) {
      case 0:
        AddSplit(std::move(row));
        return;
      case 1:
        AddTransfer(std::move(row));
        return;
      case 2:
        AddTrade(std::move(row));
        return;
      default:
        ledger_.rows.push_back(std::move(row));
    }
  }
  void AddSplit(PlainLedger::Row parent) {
    ledger_.parents.insert(parent.id);
    parent.amount = 0;
    std::vector<PlainLedger::Row> lines;
    for (int line = 0; line < 2 + Below(2); ++line) {
      PlainLedger::Row& made = lines.emplace_back(Plain());
      made.account = parent.account;
      made.day = parent.day;
      made.chk = parent.chk;
      made.rec = parent.rec;
      made.parent = parent.id;
      if (Below(2) == 0) made.keywords.clear();
      parent.amount += made.amount;
    }
    ledger_.rows.push_back(std::move(parent));
    for (auto& line : lines) ledger_.rows.push_back(std::move(line));
  }
  // Days of a month that every month has, so that a step from the first is one from the last.
  void AddSchedule() {
    constexpr int kDays[] = {0, 7, 14};
    PlainLedger::Schedule schedule{static_cast<std::int64_t>(ledger_.schedules.size()) + 1,
                                   1 + Below(5),
                                   0,
                                   Amount(),
                                   *Date::FromYmd(2026, 8 + Below(5), 1 + Below(28)),
                                   kDays[Below(3)],
                                   Below(2) * (1 + Below(6)),
                                   {}};
    if (Below(3) == 0) schedule.transferAccount = schedule.account % 5 + 1;
    for (int number = 0; number < 4 && (schedule.times == 0 || number < schedule.times); ++number) {
      if (Below(2) == 0) continue;
      PlainLedger::Row row = Plain();
      row.account = schedule.account;
      row.amount = schedule.amount;
      row.schedule = schedule.id;
      row.scheduleDay = row.day = schedule.Due(number);
      schedule.posted.insert(row.scheduleDay);
      ledger_.rows.push_back(std::move(row));
    }
    ledger_.schedules.push_back(std::move(schedule));
  }
  void AddTransfer(PlainLedger::Row from) {
    PlainLedger::Row to = from;
    to.id = ++key_;
    to.account = from.account % 5 + 1;
    to.amount = -from.amount;
    from.transfer = to.id;
    to.transfer = from.id;
    ledger_.rows.push_back(std::move(from));
    ledger_.rows.push_back(std::move(to));
  }
  void AddTrade(PlainLedger::Row row) {
    row.action = 1 + Below(6);
    row.payee = 31 + Below(2);
    row.payment = 2;
    row.category = row.action == 1 || row.action == 6 ? 2 : 1;
    row.shares = row.action == 3 ? 0 : 1 + Below(20);
    row.price = 10 + Below(100) / 10.0;
    row.commission = Below(3);
    row.dividend = row.action == 3 || row.action == 4 ? Below(50) : 0;
    row.amount = row.action >= 5 ? 0 : (row.action == 1 ? -1 : 1) * row.shares * row.price;
    ledger_.rows.push_back(std::move(row));
  }

  std::mt19937& random_;
  PlainLedger ledger_;
  std::int64_t key_ = 0;
};

}  // namespace

PlainLedger RandomLedger(std::mt19937& random, int entries) {
  return Maker(random, entries).Get();
}

ReportRequest RandomRequest(std::mt19937& random, const PlainLedger& ledger, int report) {
  const auto below = [&random](int end) {
    return std::uniform_int_distribution<int>(0, end - 1)(random);
  };
  // Some of the keys, one time in four.
  const auto some = [&](const auto& list) {
    std::vector<std::int64_t> keys;
    if (below(4) != 0) return keys;
    for (const auto& each : list) {
      if (below(2) == 0) keys.push_back(each.id);
    }
    return keys;
  };
  ReportRequest request;
  request.report = report;
  request.filter.SetKeys(FilterKind::Account, some(ledger.accounts));
  request.filter.SetKeys(FilterKind::Category, some(ledger.categories));
  request.filter.SetKeys(FilterKind::Payee,
                         below(2) == 0 ? some(ledger.payees) : std::vector<std::int64_t>());
  if (below(6) == 0) request.filter.SetKeys(FilterKind::Investment, {31});
  if (below(4) == 0) {
    request.filter.SetKeys(FilterKind::Keyword, below(2) == 0 ? std::vector<std::int64_t>{1}
                                                              : std::vector<std::int64_t>{1, 2});
  }
  if (below(8) == 0) request.filter.SetSearch({"SHOP", below(2) == 0});
  if (below(6) == 0) request.actions = {"buy", "Sell", "Dividend"};
  if (below(5) == 0) request.paymentTypes = {1, 2};
  if (below(3) != 0) {
    const Date from = Date::FromIso("2025-01-01")->AddDays(below(500));
    request.range = Period{from, from.AddDays(below(300))};
  }
  request.status = {below(2) == 0, below(2) == 0, below(2) == 0};
  request.withClosedAccounts = below(2) == 0;
  request.withoutTransfers = below(4) == 0;
  request.foldsSubCategories = below(3) == 0;
  request.currency = "EUR";
  request.converts = below(2) == 0;
  request.carriesOver = below(4) != 0;
  request.withAllCategories = below(3) == 0;
  const Date other = Date::FromIso("2025-01-01")->AddDays(below(500));
  if (below(3) == 0) request.otherRange = Period{other, other.AddDays(below(300))};
  for (int i = below(3); i > 0; --i) {
    request.whatIf.push_back(
        {Date::FromIso("2026-11-15")->AddDays(below(30)), 1 + below(5), below(90000) / 100.0});
  }
  return request;
}

}  // namespace corvanta
