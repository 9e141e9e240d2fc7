// The days of a report: its ends as they were given, and where one is open.
#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/reports/ReportArguments.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "reports/query/BalanceForecast.h"
#include "reports/query/ReportCatalogue.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <optional>
#include <string>

namespace corvanta::inline cli {
namespace {

std::optional<Date> DayOf(clsCorvanta& ledger, const char* which) {
  const Recordset row = ledger.Store().OpenRecordset(std::string("Select ") + which +
                                                     "([Date]) as Day from tblTransactions");
  return row.Eof() ? std::nullopt : row.Day("Day");
}

// What stands on a day does so after the last transaction, too: the day that such a report reaches
// at least.
std::optional<Date> LeastEnd(int report, Date today) {
  switch (report) {
    case kAccountSummary:
    case kInvestmentGains:
    case kNetWorth:
    case kBudgetOfMonth:
      return today;
    case kBalanceForecast:
      return BalanceForecast::EndOf({}, today);
    default:
      return std::nullopt;
  }
}

// An end that was not given is that of the request, or of the transactions, but never on the wrong
// side of the given one.
std::optional<Period> Filled(const PeriodArguments& typed, const std::optional<Period>& former,
                             std::optional<Date> leastEnd, clsCorvanta& ledger) {
  const std::optional<Period> given = typed.Get();
  if (!given) return former;
  Period period = *given;
  if (typed.from.empty()) {
    period.from =
        former ? former->from : std::min(DayOf(ledger, "Min").value_or(period.to), period.to);
  }
  if (typed.to.empty() && former) {
    period.to = former->to;
  } else if (typed.to.empty()) {
    const Date least = std::max(period.from, leastEnd.value_or(period.from));
    period.to = std::max(DayOf(ledger, "Max").value_or(least), least);
  }
  return period;
}

bool IsReversed(const std::optional<Period>& period) {
  return period && period->to < period->from;
}

}  // namespace

void ReportArguments::DeclareDays(Parser& command) {
  const auto add = [&command](const char* name, std::string& value, const char* text) {
    return command.AddOption(name, value, text)->TypeName("YYYY-MM-DD")->Check(DateFault);
  };
  from_ = add("--from", period_.from, "First day");
  to_ = add("--to", period_.to, "Last day");
  add("--other-from", otherPeriod_.from, "First day of the period that another one is set beside");
  add("--other-to", otherPeriod_.to, "Last day of it");
}

void ReportArguments::ExcludeFirstDay(Argument& other) const {
  other.Excludes(from_);
}

void ReportArguments::ExcludeLastDay(Argument& other) const {
  other.Excludes(to_);
}

// A budget is for as many days as the range has, so an open end becomes a day.
bool ReportArguments::ApplyDays(ReportRequest& request, clsCorvanta& ledger,
                                Session& session) const {
  const Date today = session.Machine().clock.Today();
  request.range = Filled(period_, request.range, LeastEnd(request.report, today), ledger);
  request.otherRange = Filled(otherPeriod_, request.otherRange, std::nullopt, ledger);
  if (IsReversed(request.otherRange)) {
    session.Tell("Report", "The other period ends on " + request.otherRange->to.ToIso() +
                               ", before it begins. Change --other-from or --other-to.");
    return false;
  }
  // Such a range has no days, which is no error.
  if (IsReversed(request.range)) {
    session.Tell("Report", "The range ends on " + request.range->to.ToIso() +
                               ", before it begins on " + request.range->from.ToIso() +
                               ", so the report is empty. Change --from or --to.");
  }
  return true;
}

}  // namespace corvanta::inline cli
