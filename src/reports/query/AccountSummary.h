#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What each account took in, gave out and holds at the end of the range.
class AccountSummary : public Report {
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

}  // namespace corvanta::inline reports
