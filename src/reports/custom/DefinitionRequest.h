// A saved report and what a report is run with, each made from the other.
#pragma once

#include "reports/custom/DefinitionKeys.h"
#include "reports/query/ReportRequest.h"

#include <string>
#include <vector>

namespace corvanta::inline reports {

// Of those lists of the filter no row is any more.
void LeaveNobody(RowFilter& filter, const std::vector<FilterKind>& emptied);

// With every status, without closed accounts. Of a list of which the data file has nothing any more
// no row is, instead of all.
[[nodiscard]] ReportRequest MakeRequest(const OpenedDefinition& opened);

// What a saved report keeps of the request, with these columns (none: all of the report), each as
// wide as it needs. Throws StoreError.
[[nodiscard]] ReportDefinition MakeDefinition(const std::string& name, const ReportRequest& request,
                                              const std::vector<std::string>& columns,
                                              Connection& store);

}  // namespace corvanta::inline reports
