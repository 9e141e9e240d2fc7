#pragma once

#include "ledger/register/Period.h"
#include "reports/query/Report.h"

namespace corvanta::inline reports {

// The budget of one month: what is planned of each category, what was left over or overspent in
// the months of the year before it, what it came to, and what is left. Months that ended before the
// first transaction leave nothing, and none does where nothing is to be carried over. The month is
// this one or, where the range has not got it, that of the range's day that is next to today.
//
//   carried over = sum over the year's months before it of (plan - actual)
//   left         = actual - plan - carried over
//
// All are signed as the money: of an expense a left of 20 may still be spent, -20 is spent too
// much.
class BudgetMonth : public Report {
 public:
  [[nodiscard]] bool HasPlans() const override { return true; }
  void Fill(const ReportRun& run, ReportTable& table) const override;
  [[nodiscard]] std::vector<ExplainedRow> Explain(const ReportRun& run, const ReportTable& table,
                                                  const ReportRow& row,
                                                  std::size_t column) const override;
};

}  // namespace corvanta::inline reports
