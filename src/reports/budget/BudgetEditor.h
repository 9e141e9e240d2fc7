#pragma once

#include "ledger/Warning.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline ledger {
struct CategoryRecord;
class clsCorvanta;
}  // namespace corvanta::inline ledger

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline reports {

struct ReportRequest;
struct ReportRow;

// What is planned of one category in a month.
struct BudgetForm {
  std::int64_t categoryId = 0;
  // A month, without a sign: the category's kind says whether money comes or goes. 0 for no plan;
  // nullopt for a text that is no number.
  std::optional<double> amount = 0;
};

// The rules behind the plans on the page of a month's budget. A plan holds for every month of
// the year, those before it, too: it is the category's budget, whatever its period was. Operations
// throw StoreError.
class BudgetEditor {
 public:
  // The ledger outlives this object.
  explicit BudgetEditor(clsCorvanta& ledger) : ledger_(ledger) {}

  // What the row of the month's budget that was made with this request has to edit; its amount is
  // the plan that the row shows. nullopt for a total, and for a whole category whose plan is that
  // of several below it.
  [[nodiscard]] std::optional<BudgetForm> Load(const ReportRequest& request, const ReportRow& row);
  // The first rule that is broken.
  [[nodiscard]] std::optional<Warning> Check(const BudgetForm& form);
  // Writes what Check accepts, as one step that can be undone. An amount's sign does not count. A
  // plan of nothing takes the category's budget and its period away. Returns whether something
  // changed.
  bool Save(const BudgetForm& form);

 private:
  [[nodiscard]] std::optional<CategoryRecord> Category(std::int64_t key);
  [[nodiscard]] std::int64_t MonthlyPeriod();

  clsCorvanta& ledger_;
};

// Whether the budget of a month carries over what was left in the months of its year before it:
// what stands in the settings as "CarryBudget". Setting it throws PlatformError.
[[nodiscard]] bool CarriesBudgetOver(Registry& registry);
void CarryBudgetOver(Registry& registry, bool isOn);

}  // namespace corvanta::inline reports
