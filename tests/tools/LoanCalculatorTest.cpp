#include "platform/ArithmeticText.h"
#include "support/FixedLocale.h"
#include "tools/LoanCalculator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvanta {
namespace {

LoanForm Typed(double loan, double rate, double period) {
  LoanForm form;
  form.loan = loan;
  form.rate = rate;
  form.period = period;
  return form;
}

class Loan : public testing::Test {
 protected:
  [[nodiscard]] LoanAnswer Calculate(const LoanForm& form, LoanMode mode = LoanMode::Loan) const {
    return LoanCalculator(mode, locale_).Calculate(form);
  }
  [[nodiscard]] std::string Refusal(const LoanForm& form, LoanMode mode = LoanMode::Loan) const {
    const LoanAnswer answer = Calculate(form, mode);
    if (!answer.warning) return {};
    EXPECT_EQ(answer.warning->title, "Calculation Warning");
    EXPECT_TRUE(answer.plan.rows.empty());
    return answer.warning->field + ": " + answer.warning->text;
  }
  static double Cents(double amount) { return std::round(amount * 100) / 100; }

  FixedLocale locale_;
};

TEST_F(Loan, AllFiguresAreMadeOfTheRoundedPayment) {
  const LoanPlan plan = Calculate(Typed(10000, 6, 12)).plan;
  EXPECT_EQ(plan.payment, static_cast<double>(860.66F));
  EXPECT_EQ(plan.totalInterest, static_cast<double>(860.66F) * 12 - 10000);
  EXPECT_EQ(Cents(plan.totalInterest), 327.92);
  EXPECT_EQ(Cents(plan.totalRepaid), 10327.92);
  ASSERT_EQ(plan.rows.size(), 13U) << "what the rounding has left is a row of its own";
  EXPECT_EQ(plan.rows[0].interest, plan.payment - plan.rows[0].principal);
  EXPECT_NEAR(plan.rows[0].interest, 50, 1e-9);
  double owed = 10000;
  for (const LoanRow& row : plan.rows) {
    EXPECT_NEAR(row.balance, owed * 1.005 - plan.payment, 1e-9) << row.period;
    owed = row.balance;
  }
  EXPECT_GT(plan.rows[11].balance, 0);
  EXPECT_LE(plan.rows[12].balance, 0) << "kept as it is";
  EXPECT_GT(plan.rows[12].balance, -plan.payment);
}

TEST_F(Loan, AMortgageIsCountedInYearsAndCarriesItsFixedExpense) {
  LoanForm form = Typed(100000, 5, 25);
  form.fixedExpense = 1200;
  const LoanPlan plan = Calculate(form, LoanMode::Mortgage).plan;
  EXPECT_EQ(plan.months, 300);
  EXPECT_EQ(Cents(plan.payment), 684.59);
  EXPECT_EQ(plan.rows.front().expense, 100);
  EXPECT_EQ(plan.totalFixedExpense, 30000);
  EXPECT_NEAR(plan.totalRepaid, 100000 + plan.totalInterest + 30000, 1e-6);
  EXPECT_NEAR(plan.totalInterest, static_cast<double>(584.59F) * 300 - 100000, 1e-6);
  for (const LoanRow& row : plan.rows) {
    ASSERT_NEAR(row.payment, row.expense + row.principal + row.interest, 1e-9) << row.period;
  }
  EXPECT_EQ(Calculate(Typed(1000, 5, 2.5), LoanMode::Mortgage).plan.months, 30);
}

TEST_F(Loan, TheRulesComeInTheirOrder) {
  LoanForm form;
  form.fixedExpense = -1;
  form.extra = std::nullopt;
  EXPECT_EQ(Refusal(form), "txtLoan: Please enter a valid Loan Amount");
  form.loan = 10000;
  form.rate = 0;
  EXPECT_EQ(Refusal(form), "txtRate: Please enter a valid Percentage Rate") << "not loan / period";
  form.rate = 6;
  form.period = 0;
  EXPECT_EQ(Refusal(form), "txtPeriod: Please enter a valid Loan Period");
  form.period = 12;
  EXPECT_EQ(Refusal(form, LoanMode::Mortgage),
            "txtFixedExpense: Please enter a valid Fixed Expense");
  form.fixedExpense = std::nullopt;
  EXPECT_EQ(Refusal(form, LoanMode::Mortgage),
            "txtFixedExpense: Please enter a valid Fixed Expense");
  EXPECT_EQ(Refusal(form), "txtExtra: Please enter a valid Extra Payment")
      << "a loan has no fixed expense";
  form.extra = 0;
  form.extraOnce = 500;
  for (const double period : {0.0, 0.4, 13.0}) {
    form.extraPeriod = period;
    EXPECT_NE(Refusal(form), "") << period;
  }
  form.extraPeriod = 12;
  EXPECT_EQ(Refusal(form), "");
}

TEST_F(Loan, WhatNoLoanHasIsRefused) {
  for (const LoanForm& form :
       {Typed(-1, 6, 12), Typed(kLargestAmount * 2, 6, 12), Typed(1, -6, 12), Typed(1, 1e7, 12),
        Typed(1, 6, -12), Typed(1, 6, 12001), Typed(1, 6, 0.3), Typed(1e300, 1e300, 1e300)}) {
    EXPECT_NE(Refusal(form), "") << *form.loan << ' ' << *form.rate << ' ' << *form.period;
  }
  // Rounded, the payment is the interest, or nothing.
  for (const LoanForm& form : {Typed(1000, 24, 600), Typed(0.01, 6, 12), Typed(1, 1e6, 12000)}) {
    EXPECT_TRUE(Refusal(form).starts_with("txtPeriod: The Payment, rounded to the smallest coin"));
  }
}

TEST_F(Loan, TinyAndHugeValuesComeOutRight) {
  const LoanPlan tiny = Calculate(Typed(12000, 1e-12, 12)).plan;
  EXPECT_EQ(tiny.payment, 1000) << "the rate is not lost in 1 + r";
  EXPECT_NEAR(tiny.rows.at(11).balance, 0, 1e-6);
  const LoanPlan large = Calculate(Typed(kLargestAmount, 6, 360)).plan;
  EXPECT_NEAR(large.payment / (kLargestAmount * 0.005 / (1 - std::pow(1.005, -360))), 1, 1e-7);
  EXPECT_LE(large.rows.back().balance, 0);
  const LoanPlan steep = Calculate(Typed(1000, 1200, 5)).plan;
  EXPECT_NEAR(steep.payment, 1000 * 32.0 / 31, 0.005) << "doubles from month to month";
  const LoanPlan lengthy = Calculate(Typed(1e9, 0.01, LoanCalculator::kMaxMonths)).plan;
  ASSERT_FALSE(lengthy.rows.empty());
  EXPECT_LE(lengthy.rows.back().balance, 0);
  for (const LoanRow& row : lengthy.rows) ASSERT_TRUE(std::isfinite(row.balance));
}

// A year in which nothing extra is paid but the half of the loan at once, by hand.
TEST_F(Loan, ExtraPaymentsSaveMonthsAndInterest) {
  LoanForm form = Typed(10000, 6, 12);
  EXPECT_FALSE(Calculate(form).plan.saving);
  form.extraOnce = 5000;
  form.extraPeriod = 1;
  const LoanPlan plan = Calculate(form).plan;
  ASSERT_TRUE(plan.saving);
  const double payment = plan.payment;
  double owed = 10000 * 1.005 - payment - 5000;
  double paid = payment + 5000;
  int month = 1;
  for (; owed > 0; ++month) {
    const double due = std::min(payment, owed * 1.005);
    paid += due;
    owed = owed * 1.005 - due;
  }
  EXPECT_EQ(plan.saving->months, 12 - month);
  EXPECT_NEAR(plan.saving->interest, payment * 12 - paid, 1e-9);
  EXPECT_EQ(plan.saving->balances.size(), static_cast<std::size_t>(month));
  EXPECT_EQ(plan.saving->balances.back(), 0);
  EXPECT_EQ(plan.rows.size(), 13U) << "the table is that of the loan itself";

  // With every payment: half a payment more each month repays in two thirds of the time or less.
  form.extraOnce = 0;
  form.extra = payment / 2;
  EXPECT_EQ(Calculate(form).plan.saving->months, 4);
  form.extra = 1e6;
  EXPECT_EQ(Calculate(form).plan.saving->months, 11);
}

}  // namespace
}  // namespace corvanta
