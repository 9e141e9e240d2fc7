#include "app/reports/ReportState.h"

#include "app/ViewCommand.h"
#include "reports/custom/DefinitionRequest.h"
#include "reports/query/ReportCatalogue.h"

namespace corvanta::inline app {

void ReportState::DropFilters() {
  actions.clear();
  paymentTypes.clear();
  emptied.clear();
}

ReportState ReportState::OfEverything() const {
  ReportState all = *this;
  all.DropFilters();
  all.dates.reset();
  all.otherDates.reset();
  all.withoutTransfers = false;
  return all;
}

ReportState ReportState::Other(int number) const {
  ReportState other = *this;
  other.report = number;
  other.DropFilters();
  other.columns.clear();
  other.widths.clear();
  other.definition.clear();
  return other;
}

ReportRequest RequestOf(const ViewCommand& command, bool withClosedAccounts) {
  const ReportState& state = command.report;
  ReportRequest request;
  request.report = state.report;
  request.filter = command.rows;
  if (state.emptiedWith == command.rows) LeaveNobody(request.filter, state.emptied);
  request.actions = state.actions;
  request.paymentTypes = state.paymentTypes;
  if (state.dates) request.range = Period{state.dates->start, state.dates->end};
  if (state.otherDates && state.report == kTwoPeriods) {
    request.otherRange = Period{state.otherDates->start, state.otherDates->end};
  }
  if (state.report == kBalanceForecast) request.whatIf = state.whatIf;
  // So that all of them can be planned.
  request.withAllCategories = state.report == kBudgetOfMonth;
  request.status = command.Filter();
  request.withClosedAccounts = withClosedAccounts;
  request.withoutTransfers = state.withoutTransfers;
  request.foldsSubCategories = state.foldsSubCategories;
  request.currency = state.currency;
  request.converts = state.converts && !state.currency.empty();
  return request;
}

}  // namespace corvanta::inline app
