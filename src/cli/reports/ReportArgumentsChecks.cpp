// What of a report's arguments counts in it, and what a saved report keeps of them.
#include "cli/Session.h"
#include "cli/reports/ReportArguments.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "reports/query/BalanceForecast.h"
#include "reports/query/ReportCatalogue.h"

#include <tuple>
#include <utility>

namespace corvanta::inline cli {

bool ReportArguments::CheckReport(int report, Session& session) const {
  const std::tuple<bool, const char*, int> options[] = {
      {!otherPeriod_.from.empty(), "--other-from", kTwoPeriods},
      {!otherPeriod_.to.empty(), "--other-to", kTwoPeriods},
      {carries_, "--carry", kBudgetOfMonth},
      {carriesNot_, "--no-carry", kBudgetOfMonth},
      {allCategories_, "--all-categories", kBudgetOfMonth},
      {whatIf_.IsGiven(), "--what-if", kBalanceForecast}};
  for (const auto& [isGiven, name, only] : options) {
    if (!isGiven || report == only) continue;
    session.Tell("Report", std::string(name) + " counts in the report \"" + FindReport(only)->name +
                               "\" alone. Leave it out.");
    return false;
  }
  return report != kBalanceForecast || CheckOfForecast(session);
}

// A balance is what all that comes and goes leaves.
bool ReportArguments::CheckOfForecast(Session& session) const {
  const std::pair<bool, const char*> options[] = {{!categories_.empty(), "--category"},
                                                  {!payees_.empty(), "--payee"},
                                                  {!investments_.empty(), "--investment"},
                                                  {!actions_.empty(), "--action"},
                                                  {!keywords_.empty(), "--keyword"},
                                                  {!paymentTypes_.empty(), "--payment-type"},
                                                  {!text_.empty(), "--text"},
                                                  {textOnly_, "--text-only"},
                                                  {!status_.letters.empty(), "--status"},
                                                  {withoutTransfers_, "--no-transfers"},
                                                  {fold_, "--fold"}};
  for (const auto& [isGiven, name] : options) {
    if (!isGiven) continue;
    session.Tell("Forecast", std::string(name) +
                                 " does not count in a forecast, which is of whole "
                                 "accounts. Leave it out.");
    return false;
  }
  return true;
}

// Each day of a forecast has a row for every account.
bool ReportArguments::CheckForecast(const ReportRequest& request, Session& session) const {
  const Date farthest = BalanceForecast::Farthest(session.Machine().clock.Today());
  if (request.report != kBalanceForecast || !request.range || request.range->to <= farthest) {
    return true;
  }
  session.Tell("Forecast", "A forecast reaches ten years ahead at most, to " + farthest.ToIso() +
                               ". Name an earlier last day.");
  return false;
}

std::vector<std::string> ReportArguments::NotSaved() const {
  const std::pair<bool, const char*> options[] = {{!status_.letters.empty(), "--status"},
                                                  {closed_, "--closed"},
                                                  {carries_, "--carry"},
                                                  {carriesNot_, "--no-carry"},
                                                  {allCategories_, "--all-categories"},
                                                  {!currency_.empty() && !converts_, "--currency"},
                                                  {whatIf_.IsGiven(), "--what-if"}};
  std::vector<std::string> given;
  for (const auto& [isGiven, name] : options) {
    if (isGiven) given.emplace_back(name);
  }
  return given;
}

}  // namespace corvanta::inline cli
