#pragma once

#include "reports/query/Report.h"

namespace corvanta::inline reports {

// What money is spent by.
enum class SpendingBy { Category, Payee, PaymentType };

// Money in and out by category, payee or payment type, with the number of records.
class SpendingReport : public Report {
 public:
  explicit SpendingReport(SpendingBy by) : by_(by) {}
  void Fill(const ReportRun& run, ReportTable& table) const override;

 protected:
  [[nodiscard]] Sources EvidenceOf(const ReportRun& run) const override;
  [[nodiscard]] bool IsOf(const EvidenceRow& evidence, const ReportRow& row,
                          const ReportRun& run) const override;
  [[nodiscard]] std::string Narrowed(const ReportRow& row, const ReportRun& run) const override;

 private:
  SpendingBy by_;
};

// Whether the transaction is of the row's category, or of the category that it is a part of where
// sub-categories are folded.
[[nodiscard]] bool IsOfCategory(const EvidenceRow& evidence, const ReportRow& row,
                                const ReportRun& run);
// "AND ...": the same for the statement.
[[nodiscard]] std::string OnlyCategory(const ReportRow& row, const ReportRun& run);
// Split lines where figures are by category, whole entries else.
[[nodiscard]] std::string SpendingRows(SpendingBy by);

}  // namespace corvanta::inline reports
