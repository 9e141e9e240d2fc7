#include "cli/reports/ForecastCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/reports/ShownReport.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "reports/query/ReportCatalogue.h"

#include <vector>

namespace corvanta::inline cli {

Parser* ForecastCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("forecast", "Show the balances of the days to come");
  Argument* until = command->AddOption("--until", until_, "Its last day (default: in three months)")
                        ->TypeName("YYYY-MM-DD")
                        ->Check(DateFault);
  arguments_.DeclareFilters(*command);
  arguments_.ExcludeLastDay(*until);
  arguments_.DeclareColumns(*command);
  output_.Declare(*command);
  return command;
}

ExitStatus ForecastCommand::Run(Session& session) {
  const Date today = session.Machine().clock.Today();
  const auto until = Date::FromIso(until_);
  if (until && *until <= today) {
    return session.Refuse("Forecast", "A forecast begins tomorrow: " + until_ +
                                          " lies before it. Name a later day with --until.");
  }
  if (!output_.MayWrite(session)) return ExitStatus::Refused;
  std::vector<std::string> columns;
  const auto shown = ShownReport::Run(session, [&](ReportRequest& request, clsCorvanta& ledger) {
    request.report = kBalanceForecast;
    if (until) request.range = Period{today, *until};
    return arguments_.Apply(request, ledger, session) &&
           arguments_.FillColumns(request.report, columns, session);
  });
  return shown ? output_.Write(shown->Table(), columns, session) : ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
