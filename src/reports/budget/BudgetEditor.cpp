#include "reports/budget/BudgetEditor.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/schedules/ScheduleDates.h"
#include "platform/ArithmeticText.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRequest.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace corvanta::inline reports {
namespace {

constexpr const char* kSaveWarning = "Save Warning";
constexpr const char* kField = "Plan";

bool IsMonth(const PeriodRecord& row) {
  const std::optional<PeriodStep> step = PeriodStep::FromCode(row.period);
  return step && step->interval == "m" && step->multiplier == 1;
}

}  // namespace

std::optional<BudgetForm> BudgetEditor::Load(const ReportRequest& request, const ReportRow& row) {
  const auto key = ReadWholeNumber(row.groupKey);
  if (request.report != kBudgetOfMonth || row.kind == ReportRowKind::Total || !key) {
    return std::nullopt;
  }
  const std::optional<CategoryRecord> category = Category(*key);
  if (!category) return std::nullopt;
  const std::vector<CategoryRecord> all = ledger_.Categories().Categories();
  const auto below = std::ranges::count_if(all, [&](const CategoryRecord& each) {
    return EqualFolded(each.category, category->category);
  });
  if (request.foldsSubCategories && below > 1) return std::nullopt;
  return BudgetForm{*key, std::abs(row.cells.at(kPlanColumn).Double())};
}

std::optional<Warning> BudgetEditor::Check(const BudgetForm& form) {
  if (!form.amount || !(std::abs(*form.amount) <= kLargestAmount)) {
    return Warning{kSaveWarning, "You need to enter a valid Budget", kField};
  }
  if (!Category(form.categoryId)) {
    return Warning{kSaveWarning, "The category is not in this data file any more", kField};
  }
  return std::nullopt;
}

bool BudgetEditor::Save(const BudgetForm& form) {
  std::optional<CategoryRecord> category = Category(form.categoryId);
  if (!category || !form.amount) return false;
  const double budget = RoundMoney(std::abs(*form.amount));
  const std::int64_t period = budget == 0 ? 0 : MonthlyPeriod();
  if (category->budget == budget && category->periodId == period) return false;
  category->budget = budget;
  category->periodId = period;
  const UndoLog::Step step = ledger_.Undo().Begin("Set Budget");
  ledger_.Categories().SaveCategory(*category);
  return true;
}

std::optional<CategoryRecord> BudgetEditor::Category(std::int64_t key) {
  for (CategoryRecord& row : ledger_.Categories().Categories()) {
    if (row.categoryId == key) return std::move(row);
  }
  return std::nullopt;
}

// A file without such a period has budgets without one count as monthly on the page.
std::int64_t BudgetEditor::MonthlyPeriod() {
  const std::vector<PeriodRecord> periods = ledger_.References().Periods();
  const auto month = std::ranges::find_if(periods, IsMonth);
  return month == periods.end() ? 0 : month->periodId;
}

bool CarriesBudgetOver(Registry& registry) {
  return Settings(registry).IsOn(Setting::CarryBudget);
}

void CarryBudgetOver(Registry& registry, bool isOn) {
  Settings(registry).SetOn(Setting::CarryBudget, isOn);
}

}  // namespace corvanta::inline reports
