#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What was planned of each category for the days of the report, what it came to, and the difference
// (actual less budget, both signed as the money). Budgets are converted as
// what they are compared with, from the currency that they are kept in.
class BudgetReport : public Report {
 public:
  [[nodiscard]] bool HasPlans() const override { return true; }
  void Fill(const ReportRun& run, ReportTable& table) const override;
  [[nodiscard]] std::vector<ExplainedRow> Explain(const ReportRun& run, const ReportTable& table,
                                                  const ReportRow& row,
                                                  std::size_t column) const override;

 protected:
  [[nodiscard]] Sources EvidenceOf(const ReportRun& run) const override;
  [[nodiscard]] bool IsOf(const EvidenceRow& evidence, const ReportRow& row,
                          const ReportRun& run) const override;
  [[nodiscard]] std::string Narrowed(const ReportRow& row, const ReportRun& run) const override;

 private:
  // What is planned in the row, or in all that it totals.
  [[nodiscard]] static std::vector<ExplainedRow> ExplainPlans(const ReportRun& run,
                                                              const ReportRow& row, int sign);
};

// The row of what was spent without a plan.
inline constexpr const char* kUnallocated = "Total (Unallocated)";

}  // namespace corvanta::inline reports
