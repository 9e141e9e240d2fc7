#pragma once

#include "ledger/register/RowFilter.h"
#include "reports/query/ReportRequest.h"
#include "reports/query/ReportTable.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reports {

// Where looking into a row leads.
struct DrillStep {
  ReportRequest request;             // the narrower report
  std::optional<FilterKind> filter;  // the filter that was set; nullopt for the two below
  bool setsPaymentTypes = false;
  bool setsRange = false;
  std::string label;  // what the filter's label shows; empty for a range
};

// The report that a row leads to; nullopt for a row without a group key and for one whose account,
// category, payee or investment is gone. Throws StoreError.
[[nodiscard]] std::optional<DrillStep> DrillDown(clsCorvanta& ledger, const ReportRequest& request,
                                                 const ReportRow& row);

}  // namespace corvanta::inline reports
