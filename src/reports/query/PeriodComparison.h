#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What categories came to in two periods, and the difference (this one less the other). Without a
// range it is this year and the one before it; without another range the one before it, as long.
class PeriodComparison : public Report {
 public:
  void Fill(const ReportRun& run, ReportTable& table) const override;
  [[nodiscard]] std::vector<ExplainedRow> Explain(const ReportRun& run, const ReportTable& table,
                                                  const ReportRow& row,
                                                  std::size_t column) const override;
};

}  // namespace corvanta::inline reports
