#pragma once

#include "reports/query/Report.h"
#include "reports/query/SpendingReport.h"

namespace corvanta::inline reports {

// Money by category or payee in twelve columns. They are calendar months: those of several years
// are added together.
class MonthlyReport : public Report {
 public:
  // By category or payee.
  explicit MonthlyReport(SpendingBy by) : by_(by) {}
  void Fill(const ReportRun& run, ReportTable& table) const override;

 protected:
  [[nodiscard]] Sources EvidenceOf(const ReportRun& run) const override;
  [[nodiscard]] bool IsOf(const EvidenceRow& evidence, const ReportRow& row,
                          const ReportRun& run) const override;
  [[nodiscard]] std::string Narrowed(const ReportRow& row, const ReportRun& run) const override;

 private:
  SpendingBy by_;
};

}  // namespace corvanta::inline reports
