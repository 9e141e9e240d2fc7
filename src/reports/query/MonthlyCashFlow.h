#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// Money in and out by month.
class MonthlyCashFlow : public Report {
 public:
  void Fill(const ReportRun& run, ReportTable& table) const override;

 protected:
  [[nodiscard]] Sources EvidenceOf(const ReportRun& run) const override;
  [[nodiscard]] bool IsOf(const EvidenceRow& evidence, const ReportRow& row,
                          const ReportRun& run) const override;
  [[nodiscard]] std::string Narrowed(const ReportRow& row, const ReportRun& run) const override;
};

}  // namespace corvanta::inline reports
