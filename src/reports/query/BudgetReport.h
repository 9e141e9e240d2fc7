#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What was planned of each category for the days of the report, what it came to, and the difference
// (actual less budget, both signed as the money). Budgets have no currency: they are in the report
// currency where it is in use, otherwise in the first one that is.
class BudgetReport : public Report {
 public:
  void Fill(const ReportRun& run, ReportTable& table) const override;
  [[nodiscard]] std::vector<ExplainedRow> Explain(const ReportRun& run, const ReportTable& table,
                                                  const ReportRow& row,
                                                  std::size_t column) const override;

 protected:
  [[nodiscard]] Sources EvidenceOf(const ReportRun& run) const override;
  [[nodiscard]] bool IsOf(const EvidenceRow& evidence, const ReportRow& row,
                          const ReportRun& run) const override;
  [[nodiscard]] std::string Narrowed(const ReportRow& row, const ReportRun& run) const override;
};

// The row of what was spent without a plan.
inline constexpr const char* kUnallocated = "Total (Unallocated)";

}  // namespace corvanta::inline reports
