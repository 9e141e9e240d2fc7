#include "cli/ReportCommand.h"

#include "cli/OutputTable.h"
#include "cli/Parser.h"
#include "cli/Session.h"
#include "invest/WebRates.h"
#include "ledger/clsCorvanta.h"
#include "platform/ExportWords.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reports/ReportFile.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"

#include <string>

namespace corvanta::inline cli {
namespace {

OutputKind KindOf(const ReportColumn& column) {
  switch (column.content) {
    case ReportColumn::Content::Date:
      return OutputKind::Date;
    case ReportColumn::Content::Count:
      return OutputKind::Integer;
    case ReportColumn::Content::Money:
      return OutputKind::Money;
    case ReportColumn::Content::Quantity:
      return OutputKind::Number;
    case ReportColumn::Content::Text:
      break;
  }
  return OutputKind::Text;
}

void PrintReport(const ReportTable& report, Session& session) {
  std::vector<OutputColumn> columns;
  for (const ReportColumn& column : report.columns) {
    columns.push_back({column.header, KindOf(column)});
  }
  OutputTable table(std::move(columns));
  for (const ReportRow& row : report.rows) table.AddRow(row.cells);
  session.Print(table);
}

ExitStatus WriteReport(const ReportTable& report, const std::string& path, bool replaces,
                       Platform& machine) {
  const auto bytes = ReportBytes(report, ReportFormOf(path).value_or(ReportForm::Csv), machine);
  if (!bytes) return ExitStatus::Refused;
  if (replaces) {
    machine.files.WriteAtomically(path, *bytes);
  } else {
    machine.files.WriteNew(path, *bytes);
  }
  machine.prompts.Tell(kFileExport, kFileExportComplete);
  return ExitStatus::Done;
}

ExitStatus PrintList(Session& session) {
  OutputTable table({{"Number", OutputKind::Integer}, {"Report"}, {"Columns"}});
  for (const ReportInfo& info : ReportCatalogue()) {
    std::string headers;
    for (const ReportColumn& column : ColumnsOf(info)) {
      headers += (headers.empty() ? "" : ", ") + column.header;
    }
    table.AddRow({info.number, info.name, headers});
  }
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace

Parser* ReportCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("report", "List the reports; run one");
  command->AllowCommand();
  list_ = command->AddCommand("list", "List them; so does the command alone");
  arguments_.Declare(*command, false);
  command->AddOption("--out", out_, "Write it into a file: .csv, .xls, .xlsx, .pdf, .svg or .png")
      ->TypeName("FILE");
  command->AddFlag("--force", force_, "Replace the file where it is there already");
  return command;
}

bool ReportCommand::MayWrite(Session& session) const {
  if (!ReportFormOf(out_)) {
    session.Refuse(kFileExportWarning, kNeedsExtension);
    return false;
  }
  if (force_ || !FileExists(out_)) return true;
  session.Refuse(kFileExport, "There is a file " + out_ + " already. Use --force to replace it.");
  return false;
}

ExitStatus ReportCommand::Run(Session& session) {
  if (list_->Parsed() || !arguments_.HasReport()) return PrintList(session);
  if (!out_.empty() && !MayWrite(session)) return ExitStatus::Refused;
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  ReportRequest request;
  if (!arguments_.Fill(request, ledger, session)) return ExitStatus::Refused;
  WebRates rates(ledger, session.Machine());
  const ReportTable report = RunReport(ledger, request, rates, session.Machine());
  if (!out_.empty()) return WriteReport(report, out_, force_, session.Machine());
  PrintReport(report, session);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
