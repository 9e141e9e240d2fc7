#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What is held of each investment, what it is worth, and what it has brought.
//
//   quantity  units that came less units that went (sold or removed)
//   total     quantity * last price of the price history
//   gain      total + money received - money paid for the investment
//
// All of it is in the currency of the account that holds it: an investment has a row for each of
// these, and one in its own currency where nothing is held. Of a range its end counts alone: what
// was held then, at the price known then.
class InvestmentGains : public Report {
 public:
  [[nodiscard]] std::string Currencies(const ReportClause& clause) const override;
  // Those of the accounts that have traded.
  [[nodiscard]] std::string MoreCurrencies() const override;
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

// 1 where the action's shares come, -1 where they go.
[[nodiscard]] int ShareSign(std::int64_t action);

}  // namespace corvanta::inline reports
