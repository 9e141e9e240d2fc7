#pragma once

#include "ledger/register/Period.h"
#include "reports/query/Report.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {
class Recordset;
}

namespace corvanta::inline reports {

// A category, or a whole one with all that is below it.
struct Plan {
  std::int64_t key = 0;
  std::string category;
  std::string subCategory;
  double budget = 0;  // for the days asked for
  bool hasBudget = false;
  std::map<std::string, double> actual = {};  // by the currency it is shown in
  double pastBudget = 0;                      // the same for the past that was asked for
  std::map<std::string, double> pastActual = {};

  // 0 where nothing is of that currency.
  [[nodiscard]] double ActualIn(const std::string& currency) const;
  [[nodiscard]] double PastActualIn(const std::string& currency) const;
};

// What was planned of each category for some days, and what it came to.
//
//   plan = budget of a period * days asked for / days of the period
class BudgetPlans {
 public:
  // For the days of the report, or where all are shown those that its accounts have rows of.
  explicit BudgetPlans(const ReportRun& run);
  // For one period and a past, the periods before it without a gap, each of which is planned for
  // by itself. The rows of both are gone through once.
  BudgetPlans(const ReportRun& run, const Period& period, const std::vector<Period>& past = {});

  // By category and sub-category.
  [[nodiscard]] const std::vector<Plan>& All() const { return plans_; }

 private:
  struct Days {
    corvanta::Date start;
    int count = 0;
  };
  [[nodiscard]] static Days DaysOf(const ReportRun& run);
  [[nodiscard]] static Days DaysOf(const Period& period);
  void ReadBudgets();
  // Where whole categories were read: which of them each category is of.
  void PlaceSubCategories(const std::string& some);
  [[nodiscard]] Plan& PlanOf(Recordset& rows);
  // `since`: what is before it is of the past.
  void ReadActual(const std::optional<Period>& period, const std::optional<corvanta::Date>& since);
  void AddActual(const std::string& conditions, const std::optional<corvanta::Date>& since);

  const ReportRun& run_;
  Days days_;
  std::vector<Days> past_;
  std::vector<Plan> plans_;
  std::unordered_map<std::int64_t, std::size_t> placeOf_;
};

// The days from `start` to one period on, by a period's code such as "2ww": leading digits (one
// without any) and an interval. At least 1; nullopt for a text that is no period.
[[nodiscard]] std::optional<int> PeriodDays(const std::string& period, corvanta::Date start);

}  // namespace corvanta::inline reports
