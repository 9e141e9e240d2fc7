#include "reports/query/ReportRunner.h"

#include "reports/query/ReportCatalogue.h"

#include <stdexcept>

namespace corvanta::inline reports {

ReportTable RunReport(clsCorvanta& ledger, const ReportRequest& request, RateSource& rates,
                      Platform& platform) {
  const ReportInfo* info = FindReport(request.report);
  if (info == nullptr) throw std::invalid_argument("no report of that number");
  static_cast<void>(ledger);
  static_cast<void>(rates);
  static_cast<void>(platform);
  return {info->number, info->name, ColumnsOf(*info), {}, {}};
}

}  // namespace corvanta::inline reports
