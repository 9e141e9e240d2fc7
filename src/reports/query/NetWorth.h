#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What all accounts hold at the end of each month, and the investments in them at the price of that
// day. Amounts are converted at the rate that was known of the day, and at today's where none
// was; without conversion each currency has rows of its own. The months are those of the range,
// without one from the first transaction up to today.
class NetWorth : public Report {
 public:
  void Fill(const ReportRun& run, ReportTable& table) const override;
  [[nodiscard]] std::vector<ExplainedRow> Explain(const ReportRun& run, const ReportTable& table,
                                                  const ReportRow& row,
                                                  std::size_t column) const override;
};

}  // namespace corvanta::inline reports
