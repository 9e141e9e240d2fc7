#include "invest/holdings/Returns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace corvanta {
namespace {

Date Day(const char* iso) {
  return Date::FromIso(iso).value();
}

// The worked example in the documentation of the spreadsheet function XIRR.
TEST(Returns, TheMoneyWeightedReturnIsThatOfTheSpreadsheets) {
  const std::vector<CashFlow> flows = {{Day("2008-01-01"), -10000},
                                       {Day("2008-03-01"), 2750},
                                       {Day("2008-10-30"), 4250},
                                       {Day("2009-02-15"), 3250},
                                       {Day("2009-04-01"), 2750}};
  EXPECT_NEAR(MoneyWeightedReturn(flows).value(), 0.373362535, 1e-8);
  std::vector<CashFlow> shuffled = {flows[3], flows[0], flows[4], flows[2], flows[1]};
  EXPECT_NEAR(MoneyWeightedReturn(shuffled).value(), 0.373362535, 1e-8);
}

// DeFusco, McLeavey, Pinto and Runkle, Quantitative Investment Analysis, chapter 2: a share is
// bought for 200, a second one a year later for 225, both are sold for 235 after another year; each
// pays 5 at the end of each year. The book rounds what it goes on with.
TEST(Returns, BothReturnsAreThoseOfTheTextbook) {
  const std::vector<CashFlow> flows = {
      {Day("2021-01-01"), -200}, {Day("2022-01-01"), 5 - 225}, {Day("2023-01-01"), 10 + 470}};
  EXPECT_NEAR(MoneyWeightedReturn(flows).value(), 0.0939, 0.00005);
  const std::vector<ValuePoint> points = {{Day("2021-01-01"), 200, 200},
                                          {Day("2022-01-01"), 450, 225 - 5},
                                          {Day("2023-01-01"), 0, -470 - 10}};
  const TimeWeighted earned = TimeWeightedReturn(points).value();
  EXPECT_NEAR(earned.whole, 1.15 * 480 / 450 - 1, 1e-12);
  EXPECT_NEAR(earned.annual.value(), 0.1076, 0.0001);
}

// Wikipedia, "Time-weighted return": 500 doubles in the first year, 1,000 are added, and the second
// year ends with 1,500. Nothing is gained in all, and yet the time-weighted return is a half.
TEST(Returns, MoneyThatCameBeforeALossWeighsOnlyWhereMoneyCounts) {
  const std::vector<ValuePoint> points = {
      {Day("2021-01-01"), 500, 0}, {Day("2022-01-01"), 2000, 1000}, {Day("2023-01-01"), 1500, 0}};
  const TimeWeighted earned = TimeWeightedReturn(points).value();
  EXPECT_NEAR(earned.whole, 0.5, 1e-12);
  EXPECT_NEAR(earned.annual.value(), std::sqrt(1.5) - 1, 1e-12);
  const std::vector<CashFlow> flows = {
      {Day("2021-01-01"), -500}, {Day("2022-01-01"), -1000}, {Day("2023-01-01"), 1500}};
  EXPECT_NEAR(MoneyWeightedReturn(flows).value(), 0, 1e-12);
}

TEST(Returns, ThereIsNoReturnWithoutBothSidesOrTime) {
  const Date day = Day("2024-01-01");
  EXPECT_FALSE(MoneyWeightedReturn({}));
  EXPECT_FALSE(MoneyWeightedReturn(std::vector<CashFlow>{{day, -5}, {day.AddDays(9), -5}}));
  EXPECT_FALSE(MoneyWeightedReturn(std::vector<CashFlow>{{day, -5}, {day, 6}}));
  EXPECT_FALSE(TimeWeightedReturn({}));
  EXPECT_FALSE(TimeWeightedReturn(std::vector<ValuePoint>{{day, 0, 0}, {day.AddDays(9), 0, 0}}));
}

TEST(Returns, LossesAndFortunesAreFound) {
  const Date day = Day("2024-01-01");
  const auto over = [&](int days, double got) {
    return MoneyWeightedReturn(std::vector<CashFlow>{{day, -100}, {day.AddDays(days), got}})
        .value();
  };
  EXPECT_NEAR(over(365, 0.001), -0.99999, 1e-9);
  EXPECT_NEAR(over(3650, 100), 0, 1e-12);
  EXPECT_NEAR(over(30, 150) / (std::pow(1.5, 365.0 / 30) - 1), 1, 1e-9);
  EXPECT_NEAR(over(50 * 365, 1e6), std::pow(1e4, 0.02) - 1, 1e-9) << "over fifty years";
}

TEST(Returns, WhatIsSoldAndBoughtAgainIsChainedAndLessThanAYearIsNotStretched) {
  const Date day = Day("2024-01-01");
  const std::vector<ValuePoint> points = {{day, 100, 100},
                                          {day.AddDays(10), 0, -110},   // ten percent, all sold
                                          {day.AddDays(40), 220, 200},  // ten percent on its day
                                          {day.AddDays(50), 110, 0}};   // a half lost
  const TimeWeighted earned = TimeWeightedReturn(points).value();
  EXPECT_NEAR(earned.whole, 1.1 * 1.1 * 0.5 - 1, 1e-12);
  EXPECT_FALSE(earned.annual);
}

}  // namespace
}  // namespace corvanta
