// Every cell of every report, over random filters, against a calculation of its own: plain loops
// over the rows, without the engine.
#include "ledger/LedgerTest.h"
#include "platform/TextCase.h"
#include "reports/query/DrillDown.h"
#include "reports/query/Explain.h"
#include "reports/query/PlainLedger.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace corvanta {
namespace {

using Row = PlainLedger::Row;
// A row of a report: its texts and figures.
using Cells = std::vector<Value>;

class PlainReports {
 public:
  PlainReports(const PlainLedger& ledger, const ReportRequest& request, const PlainRates& rates)
      : ledger_(ledger), request_(request), rates_(rates.rates) {}

  std::vector<Cells> Work() {
    switch (request_.report) {
      case 1:
        return AccountSummary();
      case 2:
        return MonthlyCashFlow();
      case 3:
        return AccountTransactions();
      case 4:
        return Budget();
      case 5:
      case 7:
      case 9:
        return Spending();
      case 6:
      case 8:
        return Monthly();
      case 10:
        return Gains();
      case 11:
        return Trades();
      case 12:
        return NetWorth();
      default:
        return TwoPeriods();
    }
  }

 private:
  // --- What a row is counted by

  static bool In(const std::vector<std::int64_t>& keys, std::int64_t key) {
    return keys.empty() || std::ranges::count(keys, key) > 0;
  }
  bool IsAccountShown(const PlainLedger::Account& account) const {
    if (account.closed && !request_.withClosedAccounts) return false;
    return In(request_.filter.Keys(FilterKind::Account), account.id);
  }
  bool HasStatus(const Row& row) const {
    const StatusFilter& status = request_.status;
    if (!status.uncleared && !status.cleared && !status.reconciled) return true;
    if (row.rec == 1) return status.reconciled;
    return row.chk == 1 ? status.cleared : status.uncleared;
  }
  bool HasText(const Row& row) const {
    const SearchText& search = request_.filter.Search();
    if (search.text.empty()) return true;
    const auto has = [&search](const std::string& text) {
      return FoldCase(text).find(FoldCase(search.text)) != std::string::npos;
    };
    if (has(row.description)) return true;
    const PlainLedger::Category& category = ledger_.CategoryOf(row);
    return !search.isTextOnly &&
           (has(ledger_.PayeeOf(row).name) || has(category.name) || has(category.sub));
  }
  bool HasKeyword(const std::set<std::int64_t>& keywords) const {
    const auto& wanted = request_.filter.Keys(FilterKind::Keyword);
    return wanted.empty() ||
           std::ranges::any_of(wanted, [&](auto key) { return keywords.contains(key); });
  }
  // All but the days.
  bool Passes(const Row& row) const {
    const RowFilter& filter = request_.filter;
    if (!HasStatus(row) || !IsAccountShown(ledger_.AccountOf(row))) return false;
    if (request_.withoutTransfers && row.transfer != 0) return false;
    if (!In(filter.Keys(FilterKind::Category), row.category)) return false;
    if (!In(filter.Keys(FilterKind::Payee), row.payee)) return false;
    if (!In(filter.Keys(FilterKind::Investment), row.payee)) return false;
    if (!request_.actions.empty() && (row.action < 1 || row.action > 3)) return false;
    return In(request_.paymentTypes, row.payment) && HasKeyword(row.keywords) && HasText(row);
  }
  bool IsInRange(const Row& row) const {
    const auto& range = request_.range;
    return !range || (row.day >= range->from && row.day <= range->to);
  }
  std::vector<const Row*> Wholes() const {
    return Chosen([](const Row& row) { return row.parent == 0; });
  }
  std::vector<const Row*> Lines() const {
    return Chosen([this](const Row& row) { return !ledger_.parents.contains(row.id); });
  }
  std::vector<const Row*> Chosen(const std::function<bool(const Row&)>& isWanted) const {
    std::vector<const Row*> chosen;
    for (const Row& row : ledger_.rows) {
      if (isWanted(row) && Passes(row) && IsInRange(row)) chosen.push_back(&row);
    }
    return chosen;
  }

  // --- Money

  double RateOf(const std::string& currency) const {
    if (!request_.converts || currency == request_.currency) return 1;
    const auto rate = rates_.find(currency);
    return rate == rates_.end() ? 1 : rate->second;
  }
  std::string Shown(const std::string& currency) const {
    return RateOf(currency) == 1 ? currency : request_.currency;
  }
  std::string CurrencyOf(const Row& row) const { return ledger_.AccountOf(row).currency; }
  double Money(const Row& row) const { return row.amount * RateOf(CurrencyOf(row)); }
  static double MoneyIn(double amount) { return amount > 0 ? amount : 0; }
  static double MoneyOut(double amount) { return amount < 0 ? amount : 0; }

  // --- Rows

  // Adds the figures behind the texts to the row of these texts.
  struct Sums {
    std::vector<std::pair<std::string, Cells>> rows;

    void Add(const std::string& key, const Cells& cells) {
      for (auto& [known, sums] : rows) {
        if (known != key) continue;
        for (std::size_t i = 0; i < cells.size(); ++i) {
          if (!cells[i].IsText()) sums[i] = sums[i].Double() + cells[i].Double();
        }
        return;
      }
      rows.emplace_back(key, cells);
    }
    std::vector<Cells> Get() const {
      std::vector<Cells> all;
      for (const auto& [key, cells] : rows) all.push_back(cells);
      return all;
    }
  };
  // Totals of all columns that hold figures in every row.
  std::vector<Cells> WithTotals(std::vector<Cells> rows, std::size_t currencyColumn,
                                std::size_t first, std::size_t last) const {
    Sums totals;
    for (const Cells& row : rows) {
      Cells total(row.size(), Value(""));
      const std::string currency = row[currencyColumn].Text();
      for (std::size_t i = first; i <= last; ++i) total[i] = row[i].Double();
      total.front() = "Total (" + currency + ")";
      total[currencyColumn] = currency;
      totals.Add(currency, total);
    }
    for (Cells& total : totals.Get()) rows.push_back(std::move(total));
    return rows;
  }

  // --- The reports

  std::vector<Cells> AccountSummary() {
    std::vector<PlainLedger::Account> accounts = ledger_.accounts;
    std::ranges::sort(accounts, {}, &PlainLedger::Account::name);
    std::vector<Cells> rows;
    for (const auto& account : accounts) {
      if (!IsAccountShown(account)) continue;
      double income = 0;
      double expense = 0;
      double balance = account.opening;
      for (const Row& row : ledger_.rows) {
        if (row.account != account.id || row.parent != 0 || !Passes(row)) continue;
        if (request_.range && row.day > request_.range->to) continue;
        balance += row.amount;
        if (!IsInRange(row)) continue;
        income += MoneyIn(row.amount);
        expense += MoneyOut(row.amount);
      }
      const double rate = RateOf(account.currency);
      rows.push_back(
          {account.name, income * rate, expense * rate, balance * rate, Shown(account.currency)});
    }
    return WithTotals(std::move(rows), 4, 1, 3);
  }

  std::vector<Cells> MonthlyCashFlow() {
    std::map<std::string, std::vector<const Row*>> months;  // by month and currency
    for (const Row* row : Wholes()) {
      const std::string day = row->day.ToIso();
      months[day.substr(0, 4) + day.substr(5, 2) + CurrencyOf(*row)].push_back(row);
    }
    Sums sums;
    for (const auto& [key, rows] : months) {
      for (const Row* row : rows) {
        const double money = Money(*row);
        const std::string month = key.substr(0, 6);
        const std::string currency = Shown(CurrencyOf(*row));
        sums.Add(month + currency, {month, MoneyIn(money), MoneyOut(money), money, currency});
      }
    }
    return WithTotals(sums.Get(), 4, 1, 3);
  }

  std::vector<Cells> AccountTransactions() {
    std::map<std::string, double> balances;
    for (const auto& account : ledger_.accounts) {
      if (!IsAccountShown(account)) continue;
      balances[Shown(account.currency)] += account.opening * RateOf(account.currency);
    }
    for (const Row& row : ledger_.rows) {
      if (!request_.range || row.day >= request_.range->from || row.parent != 0) continue;
      if (Passes(row)) balances[Shown(CurrencyOf(row))] += Money(row);
    }
    const bool hasKeywords = request_.filter.IsSet(FilterKind::Keyword);
    std::vector<Cells> rows;
    for (const Row* row : Chosen([&](const Row& each) {
           if (!hasKeywords) return !ledger_.parents.contains(each.id);
           // A split with the keyword is shown whole, and its lines are not.
           if (each.parent == 0) return true;
           const auto parent = std::ranges::find(ledger_.rows, each.parent, &Row::id);
           return !HasKeyword(parent->keywords);
         })) {
      const std::string currency = Shown(CurrencyOf(*row));
      const PlainLedger::Category& category = ledger_.CategoryOf(*row);
      const double money = Money(*row);
      balances[currency] += money;
      rows.push_back({ledger_.AccountOf(*row).name, row->day, ledger_.PayeeOf(*row).name,
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

  // The categories, folded where that is asked for, with what they came to by currency.
  struct Group {
    PlainLedger::Category category;
    std::set<std::int64_t> keys;
    std::vector<const Row*> rows;
  };
  std::vector<Group> Groups() {
    std::vector<Group> groups;
    for (const auto& category : ledger_.categories) {
      const bool joins = request_.foldsSubCategories && !groups.empty() &&
                         groups.back().category.name == category.name;
      if (!joins) groups.push_back({category, {}, {}});
      groups.back().keys.insert(category.id);
      if (request_.foldsSubCategories) groups.back().category.sub = "";
    }
    for (const Row* row : Lines()) {
      for (Group& group : groups) {
        if (group.keys.contains(row->category)) group.rows.push_back(row);
      }
    }
    return groups;
  }

  static int PeriodDaysOf(int periodId, Date start) {
    switch (periodId) {
      case 4:
        return 14;
      case 6:
        return start.AddMonths(1).Serial() - start.Serial();
      default:
        return start.AddMonths(12).Serial() - start.Serial();
    }
  }
  double PlanOf(const Group& group, Date start, int days) const {
    double plan = 0;
    for (const auto& category : ledger_.categories) {
      if (!group.keys.contains(category.id) || category.budget == 0) continue;
      if (!In(request_.filter.Keys(FilterKind::Category), category.id)) continue;
      plan += category.type * category.budget * days / PeriodDaysOf(category.periodId, start);
    }
    return plan;
  }
  std::vector<Cells> Budget() {
    Date start;
    int days = 0;
    if (request_.range) {
      start = request_.range->from;
      days = request_.range->to.Serial() - start.Serial() + 1;
    } else {
      std::vector<Date> all;
      for (const Row& row : ledger_.rows) {
        if (IsAccountShown(row.account)) all.push_back(row.day);
      }
      if (!all.empty()) start = *std::ranges::min_element(all);
      if (!all.empty()) days = std::ranges::max_element(all)->Serial() - start.Serial();
    }
    const std::string home = Home();
    std::map<std::string, double> unallocated = {{home, 0.0}};
    std::vector<Cells> rows;
    for (const Group& group : Groups()) {
      const double plan = PlanOf(group, start, days);
      std::map<std::string, double> actual;
      for (const Row* row : group.rows) actual[Shown(CurrencyOf(*row))] += Money(*row);
      const auto add = [&](const std::string& currency, double planned, double money) {
        rows.push_back(
            {group.category.name, group.category.sub, planned, money, money - planned, currency});
      };
      if (plan != 0 || actual.contains(home)) add(home, plan, actual[home]);
      for (const auto& [currency, money] : actual) {
        if (currency != home) add(currency, 0, money);
        if (plan == 0) unallocated[currency] += money;
      }
    }
    std::vector<Cells> result = rows;
    for (const auto& [currency, money] : unallocated) {
      result.push_back({"Total (Unallocated)", "", "", money, "", currency});
    }
    const std::vector<Cells> totalled = WithTotals(rows, 5, 2, 4);
    result.insert(result.end(), totalled.begin() + static_cast<std::ptrdiff_t>(rows.size()),
                  totalled.end());
    return result;
  }
  bool IsAccountShown(std::int64_t id) const {
    for (const auto& account : ledger_.accounts) {
      // The span of the data is that of the accounts chosen, closed or not.
      if (account.id != id) continue;
      if (request_.filter.IsSet(FilterKind::Account)) {
        return In(request_.filter.Keys(FilterKind::Account), id);
      }
      return IsAccountShown(account);
    }
    return false;
  }
  std::string Home() const {
    // Currencies are in the order of their keys, which is that of their codes for these three.
    std::set<std::string> used;
    for (const auto& account : ledger_.accounts) {
      if (IsAccountShown(account)) used.insert(account.currency);
    }
    for (const std::string& currency : used) {
      if (Shown(currency) == request_.currency) return request_.currency;
    }
    return used.empty() ? request_.currency : *used.begin();
  }

  // Name, sub-category, what tells rows of one name apart.
  std::array<std::string, 3> NamesOf(const Row& row) const {
    const PlainLedger::Category& category = ledger_.CategoryOf(row);
    switch (request_.report) {
      case 5:
      case 6:
        return {category.name, request_.foldsSubCategories ? "" : category.sub, ""};
      case 7:
        return {ledger_.PayeeOf(row).name, "", std::to_string(row.transfer)};
      case 8:
        return {ledger_.PayeeOf(row).name, "", ""};
      default:
        return {ledger_.payments.at(row.payment), "", ""};
    }
  }
  bool IsByCategory() const { return request_.report == 5 || request_.report == 6; }

  // The figures of each row under its names; `figures` gives those of one transaction.
  std::vector<Cells> ByName(const std::function<Cells(const Row&)>& figures) {
    std::map<std::array<std::string, 4>, std::pair<std::string, Cells>> found;
    Sums sums;
    for (const Row* row : IsByCategory() ? Lines() : Wholes()) {
      const auto names = NamesOf(*row);
      const std::string currency = Shown(CurrencyOf(*row));
      Cells cells = {names[0]};
      if (IsByCategory()) cells.emplace_back(names[1]);
      for (Value& figure : figures(*row)) cells.push_back(std::move(figure));
      cells.emplace_back(currency);
      sums.Add(names[0] + '\n' + names[1] + '\n' + names[2] + '\n' + currency, cells);
    }
    return sums.Get();
  }
  std::vector<Cells> Spending() {
    std::vector<Cells> rows = ByName([this](const Row& row) {
      const double money = Money(row);
      return Cells{1, MoneyIn(money), MoneyOut(money), money};
    });
    const std::size_t first = IsByCategory() ? 2 : 1;
    return WithTotals(std::move(rows), first + 4, first, first + 3);
  }
  std::vector<Cells> Monthly() {
    std::vector<Cells> rows = ByName([this](const Row& row) {
      Cells months(13, Value(0.0));
      months[static_cast<std::size_t>(row.day.Month()) - 1] = Money(row);
      months.back() = Money(row);
      return months;
    });
    const std::size_t first = IsByCategory() ? 2 : 1;
    return WithTotals(std::move(rows), first + 13, first, first + 12);
  }

  std::vector<Cells> Gains() {
    std::vector<Cells> rows;
    for (const auto& payee : ledger_.payees) {
      if (!payee.isInvestment) continue;
      if (!In(request_.filter.Keys(FilterKind::Investment), payee.id)) continue;
      const bool isKnown = !request_.range || payee.priceDay <= request_.range->to;
      const double price = isKnown ? payee.price : payee.oldPrice;
      double units = 0;
      double money = 0;
      for (const Row& row : ledger_.rows) {
        if (row.payee != payee.id || !Passes(row)) continue;
        if (request_.range && row.day > request_.range->to) continue;
        units += (row.action == 2 || row.action == 6 ? -1 : 1) * row.shares;
        money += row.amount;
      }
      const double rate = RateOf(payee.currency);
      rows.push_back({payee.name, payee.symbol, Shown(payee.currency), "", price * rate, units,
                      units * price * rate, (units * price + money) * rate});
    }
    return WithTotals(std::move(rows), 2, 6, 7);
  }

  std::vector<Cells> Trades() {
    std::vector<Cells> rows;
    for (const auto& payee : ledger_.payees) {
      Sums totals;
      for (const Row& row : ledger_.rows) {
        if (!payee.isInvestment || row.payee != payee.id || !Passes(row) || !IsInRange(row)) {
          continue;
        }
        const std::string currency = Shown(CurrencyOf(row));
        const double rate = RateOf(CurrencyOf(row));
        const double units = (row.action == 2 || row.action == 6 ? -1 : 1) * row.shares;
        constexpr const char* kActions[] = {
            "", "Buy", "Sell", "Dividend", "Reinvest Dividend", "Add Shares", "Remove Shares"};
        rows.push_back({ledger_.AccountOf(row).name, row.day, kActions[row.action], payee.symbol,
                        row.description, row.dividend * rate, row.price * rate, units,
                        row.commission * rate, row.amount * rate, currency});
        totals.Add(currency, {"Total for " + payee.name, "", "", "", "", row.dividend * rate, "",
                              units, row.commission * rate, row.amount * rate, currency});
      }
      for (Cells& total : totals.Get()) rows.push_back(std::move(total));
    }
    return rows;
  }

  std::vector<Cells> NetWorth() {
    Date first = ledger_.rows.front().day;
    Date last = FixedClock().Today();
    if (request_.range) {
      first = request_.range->from;
      last = request_.range->to;
    }
    Sums sums;
    for (Date month = first.AddDays(1 - first.Day()); month <= last; month = month.AddMonths(1)) {
      const Date day = std::min(month.AddMonths(1).AddDays(-1), last);
      const std::string key = month.ToIso().substr(0, 4) + month.ToIso().substr(5, 2);
      for (const auto& account : ledger_.accounts) {
        if (!IsAccountShown(account)) continue;
        double cash = account.opening;
        double held = 0;
        for (const Row& row : ledger_.rows) {
          if (row.account != account.id || row.parent != 0 || row.day > day || !Passes(row))
            continue;
          const PlainLedger::Payee& payee = ledger_.PayeeOf(row);
          const double price = payee.priceDay <= day ? payee.price : payee.oldPrice;
          cash += row.amount;
          held += (row.action == 2 || row.action == 6 ? -1 : 1) * row.shares * price;
        }
        const double rate = RateOf(account.currency);
        const std::string currency = Shown(account.currency);
        sums.Add(key + currency, {key, cash * rate, held * rate, (cash + held) * rate, currency});
      }
    }
    return sums.Get();
  }

  std::vector<Cells> TwoPeriods() {
    Period now{*Date::FromIso("2026-01-01"), *Date::FromIso("2026-12-31")};
    Period before{*Date::FromIso("2025-01-01"), *Date::FromIso("2025-12-31")};
    if (request_.range) {
      now = *request_.range;
      before.to = now.from.AddDays(-1);
      before.from = before.to.AddDays(now.from.Serial() - now.to.Serial());
    }
    Sums sums;
    for (const auto& category : ledger_.categories) {
      for (const Row& row : ledger_.rows) {
        if (row.category != category.id || ledger_.parents.contains(row.id)) continue;
        const bool isNow = row.day >= now.from && row.day <= now.to;
        const bool isBefore = row.day >= before.from && row.day <= before.to;
        if ((!isNow && !isBefore) || !Passes(row)) continue;
        const double money = Money(row);
        const std::string sub = request_.foldsSubCategories ? "" : category.sub;
        const std::string currency = Shown(CurrencyOf(row));
        sums.Add(category.name + "\n" + sub + "\n" + currency,
                 {category.name, sub, isNow ? money : 0.0, isNow ? 0.0 : money,
                  isNow ? money : -money, currency});
      }
    }
    return WithTotals(sums.Get(), 5, 2, 4);
  }

  const PlainLedger& ledger_;
  const ReportRequest& request_;
  std::map<std::string, double> rates_;
};

class ReportProof : public LedgerTest {
 protected:
  ReportTable Run(const ReportRequest& request) {
    return RunReport(Ledger(), request, rates_, machine_.Get());
  }
  static bool IsFigure(const Value& value) { return value.IsInteger() || value.IsDouble(); }
  static std::string TextOf(const Cells& cells) {
    std::string text;
    for (const Value& cell : cells) text += cell.Text() + "|";
    return text;
  }
  // The texts first, so that a figure's last digit does not decide where a row stands.
  static bool IsBefore(const Cells& first, const Cells& second) {
    std::string texts[2];
    for (std::size_t i = 0; i < first.size(); ++i) {
      if (!IsFigure(first[i])) texts[0] += first[i].Text() + "|";
      if (!IsFigure(second[i])) texts[1] += second[i].Text() + "|";
    }
    if (texts[0] != texts[1]) return texts[0] < texts[1];
    for (std::size_t i = 0; i < first.size(); ++i) {
      if (!IsFigure(first[i])) continue;
      const double apart = first[i].Double() - second[i].Double();
      if (std::abs(apart) > kNear) return apart < 0;
    }
    return false;
  }
  static bool AreEqual(const Cells& first, const Cells& second) {
    return std::ranges::equal(first, second, [](const Value& one, const Value& other) {
      if (!IsFigure(one) || !IsFigure(other)) return one.Text() == other.Text();
      return std::abs(one.Double() - other.Double()) < kNear;
    });
  }
  static std::string Told(const ReportRequest& request) {
    return "report " + std::to_string(request.report) + " " + request.filter.ToText() +
           (request.range ? " " + request.range->from.ToIso() + " " + request.range->to.ToIso()
                          : "") +
           (request.converts ? " converted" : "") + (request.foldsSubCategories ? " folded" : "") +
           (request.withoutTransfers ? " without transfers" : "") +
           (request.withClosedAccounts ? " closed" : "");
  }
  // Rows by name, and by category below each other, are in the order of the alphabet.
  static void CheckOrder(const ReportTable& table) {
    if (table.report < 5 || table.report > 9) return;
    const bool isDivided = table.report < 7;
    for (std::size_t i = 1; i < table.rows.size(); ++i) {
      const Cells& first = table.rows[i - 1].cells;
      const Cells& second = table.rows[i].cells;
      if (table.rows[i].kind == ReportRowKind::Total) return;
      int order = CompareFolded(first[0].Text(), second[0].Text());
      if (order == 0 && isDivided) order = CompareFolded(first[1].Text(), second[1].Text());
      EXPECT_LE(order, 0) << first[0].Text() << " stands before " << second[0].Text();
    }
  }
  // Row by row; where the order of rows is not the report's own, in any order.
  static void Compare(const ReportTable& table, std::vector<Cells> expected) {
    std::vector<Cells> rows;
    for (const ReportRow& row : table.rows) rows.push_back(row.cells);
    if ((table.report >= 5 && table.report <= 9) || table.report > kStandardReports) {
      std::ranges::sort(rows, IsBefore);
      std::ranges::sort(expected, IsBefore);
    }
    CheckOrder(table);
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_TRUE(AreEqual(rows[i], expected[i]))
          << "row " << i << " is " << TextOf(rows[i]) << " and not " << TextOf(expected[i]);
    }
  }

  static constexpr double kNear = 1e-4;
  PlainRates rates_;
};

TEST_F(ReportProof, EveryCellIsWhatTheRowsComeTo) {
  rates_.rates = {{"USD", 0.875}, {"GBP", 1.15625}};
  std::mt19937 random(14);
  const PlainLedger plain = RandomLedger(random, 160);
  WriteLedger(plain, Store());
  for (int round = 0; round < 30; ++round) {
    for (int report = 1; report <= 13; ++report) {
      const ReportRequest request = RandomRequest(random, plain, report);
      const ReportTable table = Run(request);
      SCOPED_TRACE(Told(request));
      Compare(table, PlainReports(plain, request, rates_).Work());
      if (HasFailure()) return;
    }
  }
}

TEST_F(ReportProof, EveryFigureIsTheSumOfWhatItIsExplainedBy) {
  rates_.rates = {{"USD", 0.875}, {"GBP", 1.15625}};
  std::mt19937 random(41);
  const PlainLedger plain = RandomLedger(random, 60);
  WriteLedger(plain, Store());
  for (int round = 0; round < 4; ++round) {
    for (const ReportInfo& info : ReportCatalogue()) {
      const ReportRequest request = RandomRequest(random, plain, info.number);
      const ReportTable table = Run(request);
      SCOPED_TRACE(Told(request));
      // All of the last rows, where the totals are, and some of the others.
      for (std::size_t row = 0; row < table.rows.size(); ++row) {
        if (row % 5 != 0 && row + 4 < table.rows.size()) continue;
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
          const Value& cell = table.rows[row].cells[column];
          double sum = 0;
          const auto rows = Explain(Ledger(), request, table, row, column, machine_.Get());
          for (const ExplainedRow& each : rows) {
            EXPECT_NEAR(each.contribution, each.amount * each.rate * each.sign, 1e-9);
            sum += each.contribution;
          }
          if (!table.columns[column].HoldsNumbers()) {
            EXPECT_TRUE(rows.empty()) << table.columns[column].header;
          } else {
            EXPECT_NEAR(sum, cell.Double(), 1e-3) << row << " " << table.columns[column].header;
          }
        }
      }
      if (HasFailure()) return;
    }
  }
}

TEST_F(ReportProof, LookingIntoARowShowsTheRowsThatItIsMadeOf) {
  std::mt19937 random(7);
  WriteLedger(RandomLedger(random, 120), Store());
  for (const int report : {1, 2, 5, 6, 13, 14}) {
    ReportRequest request;
    request.report = report;
    request.foldsSubCategories = report == 6;
    const ReportTable table = Run(request);
    for (const ReportRow& row : table.rows) {
      ReportRequest of = request;
      if (!table.periods.empty()) of.range = table.periods.front();
      const std::optional<DrillStep> step = DrillDown(Ledger(), of, row);
      ASSERT_EQ(step.has_value(), row.kind == ReportRowKind::Group);
      if (!step) continue;
      EXPECT_EQ(step->request.report, 3);
      const ReportTable inside = Run(step->request);
      double sum = 0;
      for (const ReportRow& each : inside.rows) {
        if (each.kind == ReportRowKind::Total || each.currency != row.currency) continue;
        sum += each.cells[7].Double() + each.cells[8].Double();
      }
      const auto figureOf = [&](const char* header) {
        const auto column = table.Column(header);
        return column ? row.cells[*column].Double() : 0;
      };
      const double figure = report == 6    ? figureOf("Total")
                            : report == 13 ? figureOf("This Period")
                            : report == 14 ? figureOf("Actual")
                                           : figureOf("Income") + figureOf("Expense");
      EXPECT_NEAR(sum, figure, 1e-4) << report << " " << row.cells.front().Text();
    }
  }
}

}  // namespace
}  // namespace corvanta
