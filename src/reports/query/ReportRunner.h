#pragma once

#include "reports/query/ReportRequest.h"
#include "reports/query/ReportTable.h"

namespace corvanta::inline ledger {
class RateSource;
class clsCorvanta;
}  // namespace corvanta::inline ledger

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

// Works a report out afresh. Rates are asked for only where amounts are to be converted; one that
// cannot be had is told under "Download Currency for Report", and the amounts of that currency stay
// as they are. A range that ends before it begins gives no rows. Throws StoreError;
// std::invalid_argument for a number that no report has.
[[nodiscard]] ReportTable RunReport(clsCorvanta& ledger, const ReportRequest& request,
                                    RateSource& rates, Platform& platform);
// The same after something else than the request has changed, with the rates that the former table
// was made with: none is asked for.
[[nodiscard]] ReportTable RunReportAgain(clsCorvanta& ledger, const ReportRequest& request,
                                         const ReportTable& former, Platform& platform);

}  // namespace corvanta::inline reports
