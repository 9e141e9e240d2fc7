#include "reports/custom/DefinitionRequest.h"

#include "platform/TextCase.h"
#include "reports/custom/ReportColumns.h"
#include "reports/query/ReportCatalogue.h"

namespace corvanta::inline reports {

void LeaveNobody(RowFilter& filter, const std::vector<FilterKind>& emptied) {
  constexpr std::int64_t kNobody = -1;  // no row has it
  for (const FilterKind kind : emptied) filter.SetKeys(kind, {kNobody});
}

ReportRequest MakeRequest(const OpenedDefinition& opened) {
  const ReportDefinition& definition = opened.definition;
  ReportRequest request;
  request.report = definition.report;
  request.filter = definition.filter;
  LeaveNobody(request.filter, opened.emptied);
  request.actions = definition.actions;
  request.range = definition.range;
  request.currency = definition.currency;
  request.converts = !definition.currency.empty();
  request.otherRange = definition.otherRange;
  request.paymentTypes = definition.paymentTypes;
  request.withoutTransfers = definition.withoutTransfers;
  request.foldsSubCategories = definition.foldsSubCategories;
  return request;
}

ReportDefinition MakeDefinition(const std::string& name, const ReportRequest& request,
                                const std::vector<std::string>& columns, Connection& store) {
  ReportDefinition definition;
  definition.name = Trim(name);
  definition.report = request.report;
  definition.filter = request.filter;
  definition.wholeCategories = WholeCategoriesOf(request.filter, store);
  definition.actions = request.actions;
  if (const ReportInfo* info = FindReport(request.report)) {
    definition.columns = columns.empty() ? ShownColumns(SplitItems(info->headers), {}) : columns;
  }
  definition.widths.resize(definition.columns.size());
  definition.range = request.range;
  if (request.converts) definition.currency = request.currency;
  if (request.report == kTwoPeriods) definition.otherRange = request.otherRange;
  definition.paymentTypes = request.paymentTypes;
  definition.withoutTransfers = request.withoutTransfers;
  definition.foldsSubCategories = request.foldsSubCategories && HasSubCategories(request.report);
  return definition;
}

}  // namespace corvanta::inline reports
