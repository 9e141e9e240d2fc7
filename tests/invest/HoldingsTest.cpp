#include "invest/HoldingsTest.h"

#include "ledger/Money.h"
#include "ledger/investments/RateSource.h"
#include "ledger/register/BalanceBook.h"
#include "platform/Settings.h"
#include "support/LedgerProblems.h"

#include <algorithm>
#include <map>
#include <random>

namespace corvanta {
namespace {

TEST_F(HoldingsTest, EveryFigureOfAHolding) {
  const std::int64_t broker = AddAccount("Broker");
  const std::int64_t acme = AddInvestment("Acme");
  const std::int64_t other = AddInvestment("other");
  AddPrice(acme, "2026-02-02", 99);
  AddPrice(acme, "2026-03-03", 7);
  AddPrice(acme, "2026-03-03", 8);  // of one day, the one written last
  AddPrice(other, "2026-03-03", 80);
  Add(InvestAction::Buy, broker, acme, Day("2026-01-05"), 10, 5, 2);          // 52
  Add(InvestAction::Buy, broker, acme, Day("2026-01-09"), 10, 6, 2);          // 62
  Add(InvestAction::Sell, broker, acme, Day("2026-02-01"), 5, 7, 1);          // 34
  Add(InvestAction::Dividend, broker, acme, Day("2026-02-10"), 0, 0, 1, 30);  // 29
  Add(InvestAction::ReinvestDividend, broker, acme, Day("2026-02-11"), 1, 9, 1, 12);
  Add(InvestAction::Buy, broker, other, Day("2026-02-01"), 1, 50);

  const HoldingsList average = Read(CostMethod::Average);
  ASSERT_EQ(average.holdings.size(), 2U);
  const Holding& row = average.holdings[0];
  EXPECT_EQ(row.account, "Broker");
  EXPECT_EQ(row.investment, "Acme");
  EXPECT_EQ(row.symbol, "Acm");
  EXPECT_EQ(row.currency, "GBP");
  EXPECT_EQ(row.units, 16);
  EXPECT_NEAR(row.cost, 114 * 15 / 20.0 + 10, 0.005);
  EXPECT_NEAR(row.averageCost, (114 * 15 / 20.0 + 10) / 16, 1e-9);
  EXPECT_EQ(row.price->price, 8);
  EXPECT_EQ(row.price->date.ToIso(), "2026-03-03");
  EXPECT_EQ(row.value, 128);
  EXPECT_NEAR(row.unrealised, 128 - 95.5, 1e-9);
  EXPECT_NEAR(row.realised, 34 - 28.5, 1e-9);
  EXPECT_NEAR(row.dividends, 29 + 12, 1e-9);
  EXPECT_NEAR(row.share, 128.0 / 208, 1e-12);
  ASSERT_EQ(average.totals.size(), 1U);
  EXPECT_EQ(average.totals[0].value, ledger_.Balances().HoldingsValue(broker));
  EXPECT_NEAR(average.totals[0].unrealised, 32.5 + 30, 1e-9);

  const Holding first = Read(CostMethod::FirstInFirstOut).holdings[0];
  EXPECT_NEAR(first.realised, 34 - 26, 1e-9);
  EXPECT_NEAR(first.cost, 26 + 62 + 10, 1e-9);
}

TEST_F(HoldingsTest, ASplitKeepsCostsAndTheirOrderAndARemovalTakesItsCostAlong) {
  const std::int64_t broker = AddAccount("Broker");
  const std::int64_t acme = AddInvestment("Acme");
  Add(InvestAction::Buy, broker, acme, Day("2026-01-05"), 10, 5);
  Add(InvestAction::Buy, broker, acme, Day("2026-01-06"), 10, 9);
  Add(InvestAction::AddShares, broker, acme, Day("2026-01-07"), 20);
  Add(InvestAction::Sell, broker, acme, Day("2026-01-08"), 20, 6);
  const Holding first = Read(CostMethod::FirstInFirstOut).holdings.at(0);
  EXPECT_EQ(first.units, 20);
  EXPECT_NEAR(first.realised, 120 - 50, 1e-9) << "what was bought first, twice as many";
  EXPECT_NEAR(first.cost, 90, 1e-9);
  Add(InvestAction::RemoveShares, broker, acme, Day("2026-01-09"), 5);
  const Holding less = Read(CostMethod::FirstInFirstOut).holdings.at(0);
  EXPECT_NEAR(less.cost, 67.5, 1e-9);
  EXPECT_NEAR(less.realised, 70, 1e-9) << "nobody paid for them";
}

TEST_F(HoldingsTest, WhatIsSoldBeforeItIsBoughtIsOwed) {
  const std::int64_t broker = AddAccount("Broker");
  const std::int64_t acme = AddInvestment("Acme");
  AddPrice(acme, "2026-01-05", 6);
  Add(InvestAction::Buy, broker, acme, Day("2026-01-05"), 5, 4);
  Add(InvestAction::Sell, broker, acme, Day("2026-01-06"), 15, 6);
  for (const CostMethod method : {CostMethod::Average, CostMethod::FirstInFirstOut}) {
    const Holding owed = Read(method).holdings.at(0);
    EXPECT_EQ(owed.units, -10);
    EXPECT_NEAR(owed.realised, 30 - 20, 1e-9);
    EXPECT_NEAR(owed.unrealised, 0, 1e-9) << "owed for 6 apiece, and worth it";
    EXPECT_EQ(owed.value, ledger_.Balances().HoldingsValue(broker));
  }
  Add(InvestAction::Buy, broker, acme, Day("2026-01-07"), 10, 5);
  EXPECT_TRUE(Read(CostMethod::Average).holdings.empty()) << "nothing is held";
  EXPECT_NEAR(Read(CostMethod::Average, true).holdings.at(0).realised, 10 + 10, 1e-9);
}

// Every unit by itself, in the order in which it came, with what it has cost.
struct UnitModel {
  std::vector<double> units;
  double realisedFirst = 0;
  double averageCost = 0;  // of all of them
  double realisedAverage = 0;
  double dividends = 0;

  void Come(int count, double cost) {
    units.insert(units.end(), static_cast<std::size_t>(count), cost / count);
    averageCost += cost;
  }
  void Go(int count, std::optional<double> proceeds) {
    const double part = averageCost * count / static_cast<double>(units.size());
    double cost = 0;
    for (int i = 0; i < count; ++i) cost += units[static_cast<std::size_t>(i)];
    units.erase(units.begin(), units.begin() + count);
    averageCost -= part;
    if (!proceeds) return;
    realisedFirst += *proceeds - cost;
    realisedAverage += *proceeds - part;
  }
  void Split(int times) {
    std::vector<double> more;
    for (const double cost : units) {
      more.insert(more.end(), static_cast<std::size_t>(times), cost / times);
    }
    units = more;
  }
  [[nodiscard]] double CostFirst() const {
    double sum = 0;
    for (const double cost : units) sum += cost;
    return sum;
  }
};

TEST_F(HoldingsTest, ARandomLedgerComesToWhatItsUnitsComeTo) {
  std::mt19937 dice(20261122);
  const auto roll = [&](int from, int to) {
    return std::uniform_int_distribution<int>(from, to)(dice);
  };
  const std::vector<std::int64_t> accounts = {AddAccount("One"), AddAccount("Two"),
                                              AddAccount("Three", kEuros)};
  std::vector<std::int64_t> investments;
  std::map<std::int64_t, double> prices;
  for (int i = 0; i < 4; ++i) {
    investments.push_back(AddInvestment("Share " + std::to_string(i)));
    prices[investments.back()] = roll(100, 9999) / 100.0;
    AddPrice(investments.back(), "2026-06-30", prices[investments.back()]);
    AddPrice(investments.back(), "2025-06-30", 1);
  }
  std::map<std::pair<std::int64_t, std::int64_t>, UnitModel> model;
  Transaction all = store_.Db().Begin();
  for (int step = 0; step < 600; ++step) {
    const std::int64_t account = accounts[static_cast<std::size_t>(roll(0, 2))];
    const std::int64_t payee = investments[static_cast<std::size_t>(roll(0, 3))];
    UnitModel& units = model[{account, payee}];
    const int held = static_cast<int>(units.units.size());
    const Date day = Day("2024-01-01").AddDays(step);
    const double price = roll(1000, 20000) / 100.0;  // above any commission
    const double commission = roll(0, 900) / 100.0;
    const int action = roll(1, 10);
    if (action <= 4 || held == 0) {
      const int count = roll(1, 40);
      Add(InvestAction::Buy, account, payee, day, count, price, commission);
      units.Come(count, count * price + commission);
    } else if (action <= 6) {
      const int count = roll(1, held);
      Add(InvestAction::Sell, account, payee, day, count, price, commission);
      units.Go(count, count * price - commission);
    } else if (action == 7) {
      const double dividend = commission + roll(1, 5000) / 100.0;
      Add(InvestAction::Dividend, account, payee, day, 0, 0, commission, dividend);
      units.dividends += dividend - commission;
    } else if (action == 8) {
      const double dividend = price * 3 + commission + roll(0, 99) / 100.0;
      Add(InvestAction::ReinvestDividend, account, payee, day, 3, price, commission, dividend);
      units.Come(3, 3 * price + commission);
      units.dividends += dividend;
    } else if (action == 9 && held < 200) {
      const int times = roll(2, 3);
      Add(InvestAction::AddShares, account, payee, day, held * (times - 1));
      units.Split(times);
    } else {
      const int count = roll(1, std::min(held, 20));
      Add(InvestAction::RemoveShares, account, payee, day, count);
      units.Go(count, std::nullopt);
    }
  }
  all.Commit();
  EXPECT_EQ(LedgerProblems(store_.Db()), std::vector<std::string>());

  for (const CostMethod method : {CostMethod::Average, CostMethod::FirstInFirstOut}) {
    const bool isFirst = method == CostMethod::FirstInFirstOut;
    const HoldingsList list = Read(method, true);
    ASSERT_EQ(list.holdings.size(), model.size());
    std::map<std::int64_t, double> values;
    for (const Holding& row : list.holdings) {
      const UnitModel& units = model.at({row.accountId, row.payeeId});
      const double held = static_cast<double>(units.units.size());
      const double cost = isFirst ? units.CostFirst() : units.averageCost;
      SCOPED_TRACE(row.account + ' ' + row.investment + (isFirst ? " first" : " average"));
      EXPECT_EQ(row.units, held);
      EXPECT_NEAR(row.cost, cost, 0.005);
      EXPECT_NEAR(row.realised, isFirst ? units.realisedFirst : units.realisedAverage, 0.005);
      EXPECT_NEAR(row.dividends, units.dividends, 0.005);
      EXPECT_NEAR(row.value, held * prices[row.payeeId], 0.005);
      EXPECT_NEAR(row.unrealised, held * prices[row.payeeId] - cost, 0.005);
      values[row.accountId] += row.value;
    }
    for (const std::int64_t account : accounts) {
      EXPECT_NEAR(values[account], ledger_.Balances().HoldingsValue(account), 1e-6);
    }
  }
}

TEST_F(HoldingsTest, ReturnsCountWhatCameAndWentInThePeriod) {
  const std::int64_t broker = AddAccount("Broker");
  const std::int64_t acme = AddInvestment("Acme");
  // The textbook's share, with its prices.
  AddPrice(acme, "2021-01-01", 200);
  AddPrice(acme, "2022-01-01", 225);
  AddPrice(acme, "2023-01-01", 235);
  Add(InvestAction::Buy, broker, acme, Day("2021-01-01"), 1, 200);
  Add(InvestAction::Dividend, broker, acme, Day("2022-01-01"), 0, 0, 0, 5);
  Add(InvestAction::Buy, broker, acme, Day("2022-01-01"), 1, 225);
  Add(InvestAction::Dividend, broker, acme, Day("2023-01-01"), 0, 0, 0, 10);
  const auto earned = [&](const char* from, const char* to) {
    const HoldingsList list = Read(CostMethod::Average, true, Period{Day(from), Day(to)});
    EXPECT_EQ(list.holdings.at(0).earned.after, list.totals.at(0).earned.after);
    return list.holdings.at(0).earned;
  };
  const PeriodReturn all = earned("2021-01-01", "2023-01-01");
  EXPECT_EQ(all.before, 0);
  EXPECT_EQ(all.paidIn, 425 - 15);
  EXPECT_EQ(all.after, 470);
  EXPECT_NEAR(all.moneyWeighted.value(), 0.0939, 0.00005);
  EXPECT_NEAR(all.timeWeighted->annual.value(), 0.1076, 0.0001);
  const PeriodReturn second = earned("2022-01-02", "2023-01-01");
  EXPECT_EQ(second.before, 450);
  EXPECT_NEAR(second.timeWeighted->whole, 480.0 / 450 - 1, 1e-12);
  EXPECT_NEAR(second.moneyWeighted.value(), 480.0 / 450 - 1, 1e-9);
  EXPECT_FALSE(earned("2010-01-01", "2011-01-01").timeWeighted) << "nothing was held";
}

TEST_F(HoldingsTest, BeforeThereIsAPriceTheLastOnePaidStandsForIt) {
  HoldingTrack track;
  HoldingRow buy;
  buy.action = 1;
  buy.day = Day("2026-01-05");
  buy.shares = 10;
  buy.price = 4;
  track.rows = {buy};
  track.prices = {{Day("2026-01-08"), 5}, {Day("2026-01-10"), 6}};
  const HoldingTrack* one = &track;
  const std::vector<DayValue> values =
      ValueOverTime({&one, 1}, {Day("2026-01-04"), Day("2026-01-11")}, 100);
  ASSERT_EQ(values.size(), 8U);
  const std::vector<double> expected = {0, 40, 40, 40, 50, 50, 60, 60};
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(values[i].value, expected[i]) << i;
  const auto few = ValueOverTime({&one, 1}, {Day("2020-01-01"), Day("2026-01-11")}, 10);
  EXPECT_EQ(few.size(), 10U);
  EXPECT_EQ(few.back().day, Day("2026-01-11"));
  EXPECT_EQ(ValueOverTime({&one, 1}, {Day("2026-01-11"), Day("2026-01-11")}, 10).size(), 2U);
}

class FixedRates : public RateSource {
 public:
  std::optional<RateAnswer> Rate(const std::string& from, const std::string& /*to*/) override {
    if (from == "EUR") return RateAnswer{0.85, Date(), "of another day"};
    if (from == "JPY") return RateAnswer{1, std::nullopt, "stands in"};
    return std::nullopt;
  }
};

TEST_F(HoldingsTest, TotalsAreConvertedAsFarAsThereAreRates) {
  HoldingTotal pounds{kPounds, "GBP", 100, 120, 20, 5, 3, {}};
  HoldingTotal euros{kEuros, "EUR", 100, 200, 100, 0, 10, {}};
  HoldingTotal yen{77, "JPY", 1000, 2000, 1000, 0, 0, {}};
  FixedRates rates;
  const ConvertedTotal sum = Converted({pounds, euros, yen}, "GBP", rates);
  EXPECT_EQ(sum.total.value, 290);
  EXPECT_EQ(sum.total.dividends, 11.5);
  EXPECT_EQ(sum.missing, std::vector<std::string>{"JPY"});
  EXPECT_EQ(sum.notices, std::vector<std::string>{"of another day"});
}

TEST_F(HoldingsTest, ThePersonChoosesHowCostsAreCounted) {
  Registry& registry = store_.platform.registry;
  EXPECT_EQ(ChosenCostMethod(registry), CostMethod::Average);
  ChooseCostMethod(registry, CostMethod::FirstInFirstOut);
  EXPECT_EQ(ChosenCostMethod(registry), CostMethod::FirstInFirstOut);
  EXPECT_EQ(Settings(registry).ChoiceText(Setting::CostMethod), "First In First Out");
}

}  // namespace
}  // namespace corvanta
