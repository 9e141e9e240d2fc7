#include "reports/chart/ChartData.h"
#include "reports/chart/ChartLook.h"
#include "reports/chart/ReportRows.h"
#include "support/FixedLocale.h"

#include <gtest/gtest.h>

#include <set>

namespace corvanta {
namespace {

using Names = std::vector<std::string>;

TEST(ChartData, TheLargestComeFirstAndTheSmallOnesAreGathered) {
  const ReportTable report = PayeeReport(20);
  EXPECT_EQ(ChartCurrencies(report), (Names{"EUR", "USD"}));
  const ChartData chart = BuildChart(report);
  EXPECT_EQ(chart.kind, ChartKind::Bars);
  EXPECT_EQ(chart.currency, "EUR");
  ASSERT_EQ(chart.categories.size(), 12U);
  EXPECT_EQ(chart.categories.front(), "Payee 20");
  EXPECT_EQ(chart.categories.back(), "Others (9)") << "who pays spends nothing";
  const auto& points = chart.series.front().points;
  EXPECT_EQ(points.front()->value, 20);
  EXPECT_EQ(points.front()->figure, -20) << "the report's own";
  EXPECT_EQ(points.front()->row, 19U);
  EXPECT_EQ(points.back()->value, 45);
  EXPECT_EQ(points.back()->figure, -45);
  EXPECT_FALSE(points.back()->row);
  EXPECT_EQ(BuildChart(report, "USD").categories, Names{"Landlord"});
  EXPECT_TRUE(BuildChart(report, "GBP").IsEmpty());
  EXPECT_EQ(BuildChart(PayeeReport(0)).currency, "USD") << "no euros were spent";
  EXPECT_EQ(BuildOwnChart(report, "USD").currency, "USD");
  EXPECT_EQ(BuildOwnChart(report, "GBP").currency, BuildChart(report).currency) << "there are none";
}

TEST(ChartData, MonthsStandInTheirOrder) {
  const ChartData chart = BuildChart(CashFlowReport());
  EXPECT_EQ(chart.kind, ChartKind::Columns);
  EXPECT_EQ(chart.categories, (Names{"2026-10", "2026-11"}));
  ASSERT_EQ(chart.series.size(), 3U);
  EXPECT_EQ(chart.series[1].name, "Expense");
  EXPECT_EQ(chart.series[1].points[0]->value, 120) << "upwards, to be compared with the income";
  EXPECT_TRUE(chart.series[2].isLine);
  EXPECT_EQ(chart.series[2].points[0]->value, -20);
  const ChartRange range = RangeOf(chart);
  EXPECT_EQ(range.low, -20);
  EXPECT_EQ(range.high, 200);
}

TEST(ChartData, ABudgetIsComparedInItsOwnDirection) {
  ReportTable report =
      ReportOf(4, "Budget Report",
               {TextColumn("Category"), TextColumn("Sub Category"), MoneyColumn("Budget"),
                MoneyColumn("Actual"), MoneyColumn("Difference"), TextColumn("Currency")});
  AddGroup(report, "EUR", {"Food", "Home", -200.0, -250.0, -50.0, "EUR"});
  AddGroup(report, "EUR", {"Salary", "", 900.0, 800.0, -100.0, "EUR"});
  AddGroup(report, "EUR", {"Car", "", -100.0, 30.0, 130.0, "EUR"});
  AddGroup(report, "EUR", {"Empty", "", 0.0, 0.0, 0.0, "EUR"});
  const ChartData chart = BuildChart(report);
  EXPECT_EQ(chart.categories, (Names{"Salary", "Food:Home", "Car"}));
  EXPECT_EQ(chart.series[0].points[1]->value, 200);
  EXPECT_EQ(chart.series[1].points[1]->value, 250);
  EXPECT_EQ(chart.series[1].points[1]->figure, -250);
  EXPECT_EQ(chart.series[1].points[2]->value, -30) << "money came back";
}

TEST(ChartData, MonthsAreStackedOfTheLargestAndTheOthers) {
  ReportTable report = ReportOf(8, "Monthly Spending by Payee", {TextColumn("Payee")});
  for (const char* month : {"January", "February", "March", "April", "May", "June", "July",
                            "August", "September", "October", "November", "December"}) {
    report.columns.push_back(MoneyColumn(month));
  }
  for (int payee = 1; payee <= 8; ++payee) {
    std::vector<Value> cells{"Payee " + std::to_string(payee)};
    for (int month = 1; month <= 12; ++month) cells.emplace_back(-1.0 * payee * month);
    AddGroup(report, "EUR", std::move(cells));
  }
  const ChartData chart = BuildChart(report);
  EXPECT_EQ(chart.kind, ChartKind::Stacked);
  EXPECT_EQ(chart.categories.size(), 12U);
  ASSERT_EQ(chart.series.size(), 6U);
  EXPECT_EQ(chart.series.front().name, "Payee 8");
  EXPECT_EQ(chart.series.front().points[11]->value, 96);
  EXPECT_EQ(chart.series.back().name, "Others (3)");
  EXPECT_EQ(chart.series.back().points[0]->value, 6);
  EXPECT_EQ(RangeOf(chart).high, 36 * 12);
}

TEST(ChartData, BalancesRunThroughTheDays) {
  ReportTable report = ReportOf(3, "Account Transactions",
                                {TextColumn("Account"),
                                 {"Date", ReportColumn::Date, ReportColumn::Content::Date},
                                 MoneyColumn("Balance")});
  AddGroup(report, "EUR", {"Giro", "2026-11-02", 5.0});
  AddGroup(report, "EUR", {"Giro", "2026-11-02", 7.0});
  AddGroup(report, "EUR", {"Giro", "2026-11-20", -1.0});
  const ChartData chart = BuildChart(report);
  EXPECT_EQ(chart.kind, ChartKind::Lines);
  EXPECT_TRUE(chart.areDays);
  EXPECT_EQ(chart.categories, (Names{"2026-11-02", "2026-11-20"}));
  EXPECT_EQ(chart.series[0].points[0]->value, 7) << "as it was at the end of the day";
  EXPECT_EQ(chart.series[0].points[0]->row, 1U);
  const FixedLocale locale;
  EXPECT_EQ(PointText(chart, 0, 1, locale), "20/11/2026, Balance: -1.00 EUR");
  for (int day = 0; day < 5000; ++day) {
    AddGroup(report, "EUR", {"Giro", Date::FromSerial(day).ToIso(), 1.0 * day});
  }
  const ChartData longer = BuildChart(report);
  EXPECT_LE(longer.categories.size(), 1001U);
  EXPECT_EQ(longer.categories.back(), "2026-11-20");
}

TEST(ChartData, AForecastHasALineForEachAccount) {
  ReportTable report = ReportOf(
      15, "Balance Forecast", {TextColumn("Account"), TextColumn("Date"), MoneyColumn("Balance")});
  AddGroup(report, "EUR", {"Giro", "2026-11-22", 5.0});
  AddGroup(report, "EUR", {"Cash", "2026-11-22", 1.0});
  AddGroup(report, "EUR", {"Giro", "2026-11-23", 3.0});
  const ChartData chart = BuildChart(report);
  ASSERT_EQ(chart.series.size(), 2U);
  EXPECT_EQ(chart.series[0].name, "Cash");
  EXPECT_FALSE(chart.series[0].points[1]);
  EXPECT_EQ(chart.series[1].points[1]->row, 2U);
}

TEST(ChartData, OtherReportsAreDrawnByTheirColumns) {
  ReportTable months =
      ReportOf(12, "Net Worth by Month",
               {TextColumn("Year/Month"), MoneyColumn("Assets"), MoneyColumn("Debts")});
  AddGroup(months, "EUR", {"2026-10", 10.0, -5.0});
  AddGroup(months, "EUR", {"2026-11", 12.0, Value()});
  const ChartData lines = BuildChart(months);
  EXPECT_EQ(lines.kind, ChartKind::Lines);
  EXPECT_EQ(lines.series.size(), 2U);
  EXPECT_FALSE(lines.series[1].points[1]);
  EXPECT_TRUE(
      BuildChart(ReportOf(11, "Investment Transactions", {MoneyColumn("Total")})).IsEmpty());
  EXPECT_TRUE(BuildChart(ReportTable{}).IsEmpty());
}

TEST(ChartData, ColoursOfAChartDiffer) {
  for (const bool isDark : {false, true}) {
    std::set<std::uint32_t> colours;
    for (std::size_t i = 0; i < 6; ++i) colours.insert(ChartColour({}, i, isDark));
    EXPECT_EQ(colours.size(), 6U);
    const ChartData chart = BuildChart(CashFlowReport());
    EXPECT_NE(ChartColour(chart.series[0], 0, isDark), ChartColour(chart.series[1], 1, isDark));
    EXPECT_NE(ChartColour(chart.series[0], 0, isDark), ChartColour(chart.series[2], 2, isDark));
    ReportTable gains = ReportOf(10, "Investment Gains and Losses",
                                 {TextColumn("Name"), MoneyColumn("Total"), MoneyColumn("Gain")});
    AddGroup(gains, "EUR", {"Acme", 100.0, 20.0});
    const ChartData worth = BuildChart(gains);
    ASSERT_EQ(worth.series.size(), 2U);
    EXPECT_NE(ChartColour(worth.series[0], 0, isDark), ChartColour(worth.series[1], 1, isDark));
  }
}

}  // namespace
}  // namespace corvanta
