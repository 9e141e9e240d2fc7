#include "cli/reports/BudgetCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/NamedItem.h"
#include "cli/reports/ShownReport.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/CategoryPath.h"
#include "platform/CurrencyDecimals.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "reports/budget/BudgetEditor.h"
#include "reports/query/PlanCurrency.h"
#include "reports/query/ReportCatalogue.h"
#include "store/sql/Connection.h"

#include <cmath>
#include <optional>
#include <vector>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Budget";

// The first day of a month that is written as YYYY-MM.
std::optional<Date> FirstOf(const std::string& month) {
  return Date::FromIso(month + "-01");
}

std::string MonthFault(const std::string& month) {
  return FirstOf(month) ? "" : "'" + month + "' is no month of the form YYYY-MM";
}

std::optional<NamedItem> FindCategory(clsCorvanta& ledger, const std::string& typed,
                                      Session& session) {
  std::vector<NamedItem> items;
  for (const CategoryRecord& row : ledger.Categories().Categories()) {
    items.push_back({row.categoryId, CategoryPath(row.category, row.subCategory)});
  }
  return FindItem(items, typed, "Category", "category", session);
}

}  // namespace

Parser* BudgetCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("budget", "Show the budget of a month; plan a category");
  command->AllowCommand();
  set_ = command->AddCommand("set", "Plan a category by the month, for every month");
  set_->AddOption("category", category_, "Category, or Category:SubCategory")->Required();
  set_->AddOption("amount", amount_, "How much a month")->Required()->Check(NumberFault);
  clear_ = command->AddCommand("clear", "Plan nothing of a category any more");
  clear_->AddOption("category", category_, "Category, or Category:SubCategory")->Required();
  Argument* month = command->AddOption("--month", month_, "The month (default: this one)")
                        ->TypeName("YYYY-MM")
                        ->Check(MonthFault);
  arguments_.DeclareFilters(*command);
  arguments_.ExcludeFirstDay(*month);
  arguments_.ExcludeLastDay(*month);
  arguments_.DeclareColumns(*command);
  output_.Declare(*command);
  return command;
}

ExitStatus BudgetCommand::Run(Session& session) {
  if (set_->Parsed() || clear_->Parsed()) return RunPlan(session);
  if (!output_.MayWrite(session)) return ExitStatus::Refused;
  std::vector<std::string> columns;
  const auto shown = ShownReport::Run(session, [&](ReportRequest& request, clsCorvanta& ledger) {
    request.report = kBudgetOfMonth;
    if (!arguments_.Apply(request, ledger, session)) return false;
    if (const auto first = FirstOf(month_)) {
      request.range = Period{*first, first->AddMonths(1).AddDays(-1)};
    }
    return arguments_.FillColumns(request.report, columns, session);
  });
  return shown ? output_.Write(shown->Table(), columns, session) : ExitStatus::Refused;
}

ExitStatus BudgetCommand::RunPlan(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto category = FindCategory(ledger, category_, session);
  if (!category) return ExitStatus::Refused;
  BudgetEditor editor(ledger);
  const Locale& own = session.Machine().locale;
  const std::string code = PlanCurrency(ledger.Store(), own.CurrencyCode());
  const double typed = clear_->Parsed() ? 0 : NumberOf(amount_);
  const BudgetForm form{category->key, RoundToCurrency(typed, code)};
  if (const auto warning = editor.Check(form)) return session.Refuse(warning->title, warning->text);
  const bool isChanged = editor.Save(form);
  const double amount = std::abs(*form.amount);
  const std::string plan = "a plan of " + own.FormatNumber(amount, CurrencyDecimals(code)) + " " +
                           code + " a month" + (isChanged ? "" : " already");
  session.Tell(kTitle, "\"" + category->name + "\" has " + (amount == 0 ? "no plan" : plan));
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
