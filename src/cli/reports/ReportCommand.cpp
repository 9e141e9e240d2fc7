#include "cli/reports/ReportCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "cli/reports/ShownReport.h"
#include "platform/Platform.h"
#include "reports/custom/ReportColumns.h"
#include "reports/custom/ReportDefinitions.h"
#include "reports/query/ReportCatalogue.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline cli {
namespace {

std::string Listed(const std::vector<std::string>& columns) {
  std::string text;
  for (const std::string& column : columns) text += (text.empty() ? "" : ", ") + column;
  return text;
}

// The reports, and behind them the saved ones with the report that each is of.
ExitStatus PrintList(Session& session) {
  OutputTable table({{"Number", OutputKind::Integer}, {"Report"}, {"Saved"}, {"Columns"}});
  for (const ReportInfo& info : ReportCatalogue()) {
    table.AddRow({info.number, info.name, Value(), Listed(SplitItems(info.headers))});
  }
  const ReportDefinitions definitions(session.Machine().registry);
  for (const ReportDefinitions::Listed& each : definitions.All()) {
    const ReportDefinition saved =
        definitions.Find(each.name).value_or(ReadDefinition()).definition;
    const ReportInfo* info = FindReport(saved.report);
    table.AddRow({info == nullptr ? Value() : Value(info->number),
                  info == nullptr ? Value() : Value(info->name), each.name, Listed(saved.columns)});
  }
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace

Parser* ReportCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("report", "List the reports; run, save and open them");
  command->AllowCommand();
  list_ = command->AddCommand("list", "List them and the saved ones; so does the command alone");
  save_ = command->AddCommand("save", "Save a report with its filters under a name");
  saved_.Declare(*save_, "The name to save it under");
  arguments_.DeclareReport(*save_, true);
  open_ = command->AddCommand("open", "Run a saved report; filters take the place of saved ones");
  saved_.Declare(*open_, "The name of the saved report");
  delete_ = command->AddCommand("delete", "Delete a saved report");
  saved_.Declare(*delete_, "The name of the saved report");
  arguments_.DeclareReport(*command, false);
  // One of them is given, so they may write into the same place.
  for (Parser* each : {command, save_, open_}) {
    arguments_.DeclareFilters(*each);
    arguments_.DeclareColumns(*each);
    output_.Declare(*each);
  }
  return command;
}

ExitStatus ReportCommand::Run(Session& session) {
  if (delete_->Parsed()) return RunDelete(session);
  if (!output_.MayWrite(session)) return ExitStatus::Refused;
  if (save_->Parsed()) return RunSave(session);
  if (open_->Parsed()) return RunOpen(session);
  if (list_->Parsed() || !arguments_.HasReport()) {
    if (!output_.IsFile()) return PrintList(session);
    return session.Refuse("Report", "--out is of one report: say which, by its name or number.");
  }
  return RunNamed(session);
}

ExitStatus ReportCommand::RunNamed(Session& session) {
  std::vector<std::string> columns;
  const auto shown = ShownReport::Run(session, [&](ReportRequest& request, clsCorvanta& ledger) {
    return arguments_.FillReport(request, session) && arguments_.Apply(request, ledger, session) &&
           arguments_.FillColumns(request.report, columns, session);
  });
  return shown ? output_.Write(shown->Table(), columns, session) : ExitStatus::Refused;
}

ExitStatus ReportCommand::RunSave(Session& session) {
  std::vector<std::string> columns;
  const auto save = [&](ReportRequest& request, clsCorvanta& ledger) {
    return arguments_.FillReport(request, session) && arguments_.Apply(request, ledger, session) &&
           arguments_.FillColumns(request.report, columns, session) &&
           saved_.Save(request, columns, output_.Replaces(), ledger, session);
  };
  if (output_.IsFile()) {
    const auto shown = ShownReport::Run(session, save);
    if (!shown) return ExitStatus::Refused;
    TellNotSaved(session);
    return output_.Write(shown->Table(), columns, session);
  }
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  ReportRequest request;
  if (!save(request, ledger)) return ExitStatus::Refused;
  TellNotSaved(session);
  return ExitStatus::Done;
}

void ReportCommand::TellNotSaved(Session& session) const {
  const std::vector<std::string> options = arguments_.NotSaved();
  if (options.empty()) return;
  session.Tell("Save Custom Report", "A saved report does not keep " + Listed(options) +
                                         ": give that again when you open it.");
}

ExitStatus ReportCommand::RunOpen(Session& session) {
  std::vector<std::string> columns;
  std::string name;
  const auto shown = ShownReport::Run(session, [&](ReportRequest& request, clsCorvanta& ledger) {
    return saved_.Open(request, columns, name, ledger, session) &&
           arguments_.Apply(request, ledger, session) &&
           arguments_.FillColumns(request.report, columns, session);
  });
  if (!shown) return ExitStatus::Refused;
  shown->SetSavedName(name);
  return output_.Write(shown->Table(), columns, session);
}

ExitStatus ReportCommand::RunDelete(Session& session) {
  return saved_.Delete(session) ? ExitStatus::Done : ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
