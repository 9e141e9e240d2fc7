#include "cli/LoanCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "platform/Decimal.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <ostream>

namespace corvanta::inline cli {
namespace {

// As it is shown to a person: the payment is kept with more digits than anybody pays.
double Shown(double amount, Session& session) {
  return Rounded(amount, session.Machine().locale.DefaultDecimals());
}

}  // namespace

Parser* LoanCommand::Declare(Parser& parser) {
  Parser* command = IsMortgage()
                        ? parser.AddCommand("mortgage", "What a mortgage costs a month and in all")
                        : parser.AddCommand("loan", "What a loan costs a month and in all");
  const auto number = [&](const char* name, std::string& value, const char* what) {
    return command->AddOption(name, value, what)->Check(NumberFault);
  };
  number("amount", amount_, "What is lent")->Required();
  number("rate", rate_, "Interest, percent a year")->Required();
  if (IsMortgage()) {
    number("years", period_, "How long it is paid back")->Required();
    number("expense", expense_, "What is paid every year beside it, such as insurance");
  } else {
    number("months", period_, "How long it is paid back")->Required();
  }
  number("--extra", extra_, "Paid on top of every payment");
  number("--extra-once", extraOnce_, "Paid on top of one payment");
  number("--with", extraPeriod_, "The number of that payment (default: 1)");
  command->AddFlag("--table", table_, "Print the repayment table");
  return command;
}

LoanForm LoanCommand::Form() const {
  LoanForm form;
  form.loan = NumberOf(amount_);
  form.rate = NumberOf(rate_);
  form.period = NumberOf(period_);
  form.fixedExpense = NumberOf(expense_);
  form.extra = NumberOf(extra_);
  form.extraOnce = NumberOf(extraOnce_);
  form.extraPeriod = NumberOf(extraPeriod_);
  return form;
}

ExitStatus LoanCommand::Run(Session& session) {
  const LoanAnswer answer = LoanCalculator(mode_, session.Machine().locale).Calculate(Form());
  if (answer.warning) return session.Refuse(answer.warning->title, answer.warning->text);
  if (table_) {
    PrintTable(answer.plan, session);
  } else if (session.Options().format == "text") {
    PrintLines(answer.plan, session);
  } else {
    PrintFigures(answer.plan, session);
  }
  return ExitStatus::Done;
}

void LoanCommand::PrintLines(const LoanPlan& plan, Session& session) const {
  const Locale& locale = session.Machine().locale;
  const int decimals = Settings(session.Machine().registry).InvestmentDecimals();
  std::ostream& out = session.Out();
  out << "Payment: " << locale.FormatNumber(plan.payment) << '\n'
      << "Total Interest: " << locale.FormatNumber(plan.totalInterest, decimals) << '\n'
      << "Total Repaid: " << locale.FormatNumber(plan.totalRepaid) << '\n';
  if (IsMortgage()) {
    out << "Months: " << locale.FormatNumber(plan.months, 0) << '\n'
        << "Total Fixed Expense: " << locale.FormatNumber(plan.totalFixedExpense) << '\n';
  }
  if (plan.saving) {
    out << "Months Saved: " << locale.FormatNumber(plan.saving->months, 0) << '\n'
        << "Interest Saved: " << locale.FormatNumber(plan.saving->interest) << '\n';
  }
}

void LoanCommand::PrintFigures(const LoanPlan& plan, Session& session) const {
  const int decimals = Settings(session.Machine().registry).InvestmentDecimals();
  OutputTable table({{"Payment", OutputKind::Money},
                     {"Months", OutputKind::Integer},
                     {"Total Interest", OutputKind::Number},
                     {"Total Repaid", OutputKind::Money},
                     {"Total Fixed Expense", OutputKind::Money},
                     {"Months Saved", OutputKind::Integer},
                     {"Interest Saved", OutputKind::Money}});
  table.AddRow({Shown(plan.payment, session), plan.months, Rounded(plan.totalInterest, decimals),
                Shown(plan.totalRepaid, session), Shown(plan.totalFixedExpense, session),
                plan.saving ? Value(plan.saving->months) : Value(),
                plan.saving ? Value(Shown(plan.saving->interest, session)) : Value()});
  session.Print(table);
}

void LoanCommand::PrintTable(const LoanPlan& plan, Session& session) const {
  std::vector<OutputColumn> columns = {{"Period", OutputKind::Integer},
                                       {"Payment", OutputKind::Money}};
  if (IsMortgage()) columns.push_back({"Expense", OutputKind::Money});
  for (const char* name : {"Principle", "Interest", "Loan"}) {
    columns.push_back({name, OutputKind::Money});
  }
  OutputTable table(std::move(columns));
  for (const LoanRow& row : plan.rows) {
    std::vector<Value> values = {row.period, Shown(row.payment, session)};
    if (IsMortgage()) values.emplace_back(Shown(row.expense, session));
    for (const double figure : {row.principal, row.interest, row.balance}) {
      values.emplace_back(Shown(figure, session));
    }
    table.AddRow(std::move(values));
  }
  session.Print(table);
}

}  // namespace corvanta::inline cli
