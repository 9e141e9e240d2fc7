#pragma once

#include "ledger/Warning.h"

#include <optional>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline tools {

enum class LoanMode { Loan, Mortgage };

// What a person has typed; nullopt where that is no number.
struct LoanForm {
  std::optional<double> loan;
  std::optional<double> rate;              // percent a year
  std::optional<double> period;            // months, of a mortgage years
  std::optional<double> fixedExpense = 0;  // a year, of a mortgage alone
  // Paid on top of the payments; 0 for nothing.
  std::optional<double> extra = 0;        // with every payment
  std::optional<double> extraOnce = 0;    // with one payment
  std::optional<double> extraPeriod = 1;  // with which one, counted from 1
};

// One line of the repayment table.
struct LoanRow {
  int period = 0;  // from 1
  double payment = 0;
  double expense = 0;
  double principal = 0;
  double interest = 0;
  double balance = 0;  // what is still owed after it
};

// What extra payments come to.
struct LoanSaving {
  int months = 0;                // by which the loan is repaid sooner
  double interest = 0;           // that is not paid
  std::vector<double> balances;  // after each payment, until nothing is owed
};

struct LoanPlan {
  int months = 0;
  double payment = 0;  // a month, with the fixed expense
  double totalInterest = 0;
  double totalRepaid = 0;  // with the fixed expense
  double totalFixedExpense = 0;
  std::vector<LoanRow> rows;
  std::optional<LoanSaving> saving;  // where something extra is paid
};

struct LoanAnswer {
  std::optional<Warning> warning;  // then nothing was worked out
  LoanPlan plan;
};

// Works out the repayment of an annuity loan. With L the loan, n the months and r = rate / 1200:
//
//   payment P = L r (1 + r)^n / ((1 + r)^n - 1)
//
// the present value of an ordinary annuity solved for its payment (S. G. Kellison, The Theory of
// Interest, chapter 3). P is rounded as it is shown, to the decimals of the locale, and kept as a
// single-precision number, which is what all else is made of: interest = P n - L, and from payment
// to payment balance = (1 + r) balance - P. The table ends with the first balance that is not above
// 0 and keeps it; where the rounded P falls short of the exact one, that is after the n-th payment.
//
// Amounts have no sign: what is paid is positive.
class LoanCalculator {
 public:
  // The most months that a table has room for.
  static constexpr int kMaxMonths = 12000;

  // The locale outlives this object.
  LoanCalculator(LoanMode mode, const Locale& locale) : mode_(mode), locale_(locale) {}

  // The first rule that the form breaks is the warning; a payment that, rounded, does not repay the
  // loan is refused too.
  [[nodiscard]] LoanAnswer Calculate(const LoanForm& form) const;

 private:
  struct Terms {
    double loan = 0;
    double monthlyRate = 0;
    int months = 0;
    double expense = 0;  // a month
  };

  [[nodiscard]] std::optional<Warning> Check(const LoanForm& form) const;
  [[nodiscard]] std::optional<Warning> CheckExtra(const LoanForm& form) const;
  [[nodiscard]] int MonthsOf(const LoanForm& form) const;
  [[nodiscard]] double RoundedPayment(const Terms& terms) const;

  LoanMode mode_;
  const Locale& locale_;
};

}  // namespace corvanta::inline tools
