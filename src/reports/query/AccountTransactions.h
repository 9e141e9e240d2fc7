#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// The transactions, splits by their lines, with a running balance for each currency.
class AccountTransactions : public Report {
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

 private:
  // What the running balance of each shown currency begins with.
  struct Opening {
    std::string currency;
    double balance = 0;
  };
  [[nodiscard]] static std::vector<Opening> Openings(const ReportRun& run);
  // The whole entries before the range, which the balance begins with.
  [[nodiscard]] static Sources Before(const ReportRun& run);
};

}  // namespace corvanta::inline reports
