#pragma once

#include "platform/Date.h"
#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What each account will hold on the days to come, from the range's beginning where that is one of
// them, up to the range's end or, where that is past, for three months: what is entered ahead and
// expected of the schedules, and the average of a day.
//
//   average  what the last 365 days brought or took, without transfers, trades and what came of
//            schedules, / 365, or the days since the account's first transaction
//   balance  of the day before + entered + scheduled + average
//
// Payments that are overdue are expected on the first day. Of the filters accounts alone count. A
// scheduled transfer into another currency that no rate is known for counts in neither account; the
// table's notice names it, and says so where there are other filters.
class BalanceForecast : public Report {
 public:
  // The day that its days may reach up to: each has a row for every account.
  [[nodiscard]] static Date Farthest(Date today);
  // The last day of the forecast of that request, never behind the farthest one.
  [[nodiscard]] static Date EndOf(const ReportRequest& request, Date today);

  void Fill(const ReportRun& run, ReportTable& table) const override;
  [[nodiscard]] std::vector<ExplainedRow> Explain(const ReportRun& run, const ReportTable& table,
                                                  const ReportRow& row,
                                                  std::size_t column) const override;
};

}  // namespace corvanta::inline reports
