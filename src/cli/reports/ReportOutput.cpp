#include "cli/reports/ReportOutput.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "cli/output/TableWriter.h"
#include "platform/ExportWords.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reports/ReportFile.h"
#include "reports/custom/ReportColumns.h"
#include "reports/query/ReportTable.h"

#include <optional>
#include <sstream>
#include <string_view>

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

OutputTable OutputOf(const ReportTable& report) {
  std::vector<OutputColumn> columns;
  for (const ReportColumn& column : report.columns) {
    columns.push_back({column.header, KindOf(column)});
  }
  OutputTable table(std::move(columns));
  for (const ReportRow& row : report.rows) table.AddRow(row.cells);
  return table;
}

// The forms that the output itself has beside .csv, by a file's ending.
std::string_view PlainFormOf(const std::string& path) {
  const std::string name = ToLower(path);
  if (name.ends_with(".json")) return "json";
  return name.ends_with(".txt") ? "text" : std::string_view();
}

// nullopt, told, when it cannot be made.
std::optional<std::string> BytesOf(const ReportTable& report,
                                   const std::vector<std::string>& columns, const std::string& path,
                                   Platform& machine) {
  if (const std::string_view plain = PlainFormOf(path); !plain.empty()) {
    std::ostringstream text;
    TableWriter::For(plain, machine.locale)->Write(OutputOf(OnlyColumns(report, columns)), text);
    return text.str();
  }
  const ReportForm form = ReportFormOf(path).value_or(ReportForm::Csv);
  const bool isPicture = form == ReportForm::Svg || form == ReportForm::Png;
  return ReportBytes(isPicture ? report : OnlyColumns(report, columns), form, machine);
}

}  // namespace

void ReportOutput::Declare(Parser& command) {
  command
      .AddOption("--out", path_,
                 "Write it into a file: .csv, .json, .txt, .xls, .xlsx, .pdf, .svg or .png")
      ->TypeName("FILE");
  command.AddFlag("--force", force_, "Replace what is there already");
}

bool ReportOutput::MayWrite(Session& session) const {
  if (path_.empty()) return true;
  if (!ReportFormOf(path_) && PlainFormOf(path_).empty()) {
    session.Tell(kFileExportWarning, kNeedsExtension);
    return false;
  }
  if (force_ || !FileExists(path_)) return true;
  session.Tell(kFileExport, "There is a file " + path_ + " already. Use --force to replace it.");
  return false;
}

ExitStatus ReportOutput::Write(const ReportTable& report, const std::vector<std::string>& columns,
                               Session& session) const {
  Platform& machine = session.Machine();
  if (path_.empty()) {
    session.Print(OutputOf(OnlyColumns(report, columns)));
    return ExitStatus::Done;
  }
  const auto bytes = BytesOf(report, columns, path_, machine);
  if (!bytes) return ExitStatus::Refused;
  machine.files.Save(path_, *bytes, force_ ? FormerFile::Replace : FormerFile::Refuse);
  machine.prompts.Tell(kFileExport, kFileExportComplete);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
