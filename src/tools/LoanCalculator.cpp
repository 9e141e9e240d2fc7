#include "tools/LoanCalculator.h"

#include "platform/ArithmeticText.h"
#include "platform/Locale.h"

#include <algorithm>
#include <cmath>

namespace corvanta::inline tools {
namespace {

constexpr const char* kTitle = "Calculation Warning";
constexpr double kMaxRate = 1e6;  // percent; nobody's, but what a slip of the hand may type
constexpr double kMonths = 12;

Warning Refused(const char* text, const char* field) {
  return {kTitle, text, field};
}

bool IsAbove0(const std::optional<double>& number, double most) {
  return number && *number > 0 && *number <= most;
}

bool IsFrom0(const std::optional<double>& number) {
  return number && *number >= 0 && *number <= kLargestAmount;
}

// (1 + r)^n written so that neither a tiny rate is lost nor a large power overflows.
double ExactPayment(double loan, double rate, int months) {
  return loan * rate / -std::expm1(-months * std::log1p(rate));
}

// Empty where the payment never repays the loan, or not within a table's length.
std::vector<LoanRow> TableOf(double loan, double rate, double payment, double expense) {
  std::vector<LoanRow> rows;
  double balance = loan;
  while (balance > 0) {
    const double next = (1 + rate) * balance - payment;
    if (next >= balance || rows.size() >= 2 * LoanCalculator::kMaxMonths) return {};
    const double principal = balance - next;
    rows.push_back({static_cast<int>(rows.size()) + 1, payment + expense, expense, principal,
                    payment - principal, next});
    balance = next;
  }
  return rows;
}

// Follows the payments with what is paid extra. The last of them is no more than what is owed; a
// rest that the rounding of the payment leaves after the last month counts in neither case.
LoanSaving SavingOf(const LoanForm& form, double loan, double rate, double payment, int months) {
  LoanSaving saving;
  const int period = static_cast<int>(std::lround(*form.extraPeriod));
  double balance = loan;
  double paid = 0;
  int month = 0;
  while (balance > 0 && month < months) {
    ++month;
    const double owed = (1 + rate) * balance;
    const double due = payment + *form.extra + (month == period ? *form.extraOnce : 0);
    paid += std::min(due, owed);
    balance = std::max(0.0, owed - due);
    saving.balances.push_back(balance);
  }
  saving.months = months - month;
  saving.interest = payment * months - paid;
  return saving;
}

}  // namespace

int LoanCalculator::MonthsOf(const LoanForm& form) const {
  const double months = *form.period * (mode_ == LoanMode::Mortgage ? kMonths : 1);
  return months <= kMaxMonths ? static_cast<int>(std::lround(months)) : 0;
}

std::optional<Warning> LoanCalculator::Check(const LoanForm& form) const {
  if (!IsAbove0(form.loan, kLargestAmount)) {
    return Refused("Please enter a valid Loan Amount", "txtLoan");
  }
  if (!IsAbove0(form.rate, kMaxRate)) {
    return Refused("Please enter a valid Percentage Rate", "txtRate");
  }
  if (!IsAbove0(form.period, kMaxMonths) || MonthsOf(form) == 0) {
    return Refused("Please enter a valid Loan Period", "txtPeriod");
  }
  if (mode_ == LoanMode::Mortgage && !IsFrom0(form.fixedExpense)) {
    return Refused("Please enter a valid Fixed Expense", "txtFixedExpense");
  }
  return CheckExtra(form);
}

std::optional<Warning> LoanCalculator::CheckExtra(const LoanForm& form) const {
  if (!IsFrom0(form.extra)) return Refused("Please enter a valid Extra Payment", "txtExtra");
  if (!IsFrom0(form.extraOnce)) {
    return Refused("Please enter a valid Extra Payment", "txtExtraOnce");
  }
  if (*form.extraOnce > 0 &&
      !(IsAbove0(form.extraPeriod, MonthsOf(form)) && std::lround(*form.extraPeriod) > 0)) {
    return Refused("Please enter the number of the payment that the Extra Payment comes with",
                   "txtExtraPeriod");
  }
  return std::nullopt;
}

double LoanCalculator::RoundedPayment(const Terms& terms) const {
  const std::string shown =
      locale_.FormatNumber(ExactPayment(terms.loan, terms.monthlyRate, terms.months));
  return static_cast<double>(static_cast<float>(locale_.ParseNumber(shown).value_or(0)));
}

LoanAnswer LoanCalculator::Calculate(const LoanForm& form) const {
  if (auto warning = Check(form)) return {std::move(warning), {}};
  Terms terms{*form.loan, *form.rate / 100 / kMonths, MonthsOf(form), 0};
  if (mode_ == LoanMode::Mortgage) terms.expense = *form.fixedExpense / kMonths;
  const double payment = RoundedPayment(terms);

  LoanPlan plan;
  plan.rows = TableOf(terms.loan, terms.monthlyRate, payment, terms.expense);
  if (plan.rows.empty()) {
    return {Refused("The Payment, rounded to the smallest coin, never repays the Loan. Please "
                    "enter a shorter Loan Period or a larger Loan Amount",
                    "txtPeriod"),
            {}};
  }
  plan.months = terms.months;
  plan.payment = payment + terms.expense;
  plan.totalInterest = payment * terms.months - terms.loan;
  plan.totalFixedExpense = terms.expense * terms.months;
  plan.totalRepaid = terms.loan + plan.totalInterest + plan.totalFixedExpense;
  if (*form.extra > 0 || *form.extraOnce > 0) {
    plan.saving = SavingOf(form, terms.loan, terms.monthlyRate, payment, terms.months);
  }
  return {std::nullopt, std::move(plan)};
}

}  // namespace corvanta::inline tools
