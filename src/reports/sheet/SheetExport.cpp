#include "reports/sheet/SheetExport.h"

#include "platform/CsvText.h"
#include "platform/ExportWords.h"
#include "platform/Files.h"
#include "platform/FormulaGuard.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/ShortestNumber.h"
#include "platform/TextCase.h"

#include <array>
#include <utility>

namespace corvanta::inline reports {
namespace {

constexpr std::array<std::pair<std::string_view, SheetForm>, 3> kExtensions = {
    {{".csv", SheetForm::Csv}, {".xls", SheetForm::Xls}, {".xlsx", SheetForm::Xlsx}}};

// The question knows one filter; the last of these closes the list.
FileQuestion SaveQuestion() {
  return {"Save File As",
          "Excel Workbook (*.xlsx);;Excel Worksheet (*.xls);;ASCII Text File",
          "*.csv",
          {},
          {}};
}

std::string CsvCell(const SpreadsheetCell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return CsvField(GuardFormula(*text));
  if (const auto* number = std::get_if<double>(&cell)) return ShortestNumber(*number);
  if (const auto* sum = std::get_if<SpreadsheetSum>(&cell)) return ShortestNumber(sum->value);
  if (const auto* day = std::get_if<Date>(&cell)) return day->ToIso();
  return {};
}

}  // namespace

std::optional<SheetForm> SheetFormOf(std::string_view path) {
  const std::string name = ToLower(path);
  for (const auto& [extension, form] : kExtensions) {
    if (name.ends_with(extension)) return form;
  }
  return std::nullopt;
}

std::string CsvOf(const SpreadsheetTable& table) {
  std::string text;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    text += (i > 0 ? "," : "") + CsvField(GuardFormula(table.columns[i].header));
  }
  text += "\r\n";
  for (const SpreadsheetRow& row : table.rows) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      if (i > 0) text += ',';
      if (i < row.cells.size()) text += CsvCell(row.cells[i]);
    }
    text += "\r\n";
  }
  return text;
}

std::string SheetBytes(const SpreadsheetTable& table, SheetForm form, Platform& platform) {
  if (form == SheetForm::Csv) return CsvOf(table);
  return platform.spreadsheet.Render(
      table, form == SheetForm::Xls ? SpreadsheetForm::Xls : SpreadsheetForm::Xlsx);
}

std::optional<Warning> CheckSheetFile(std::string_view path) {
  if (SheetFormOf(path)) return std::nullopt;
  return Warning{kFileExportWarning, kNeedsExtension, ""};
}

void ExportSheet(const SpreadsheetTable& table, const std::string& path, Platform& platform) {
  const SheetForm form = SheetFormOf(path).value_or(SheetForm::Csv);
  platform.files.Save(path, SheetBytes(table, form, platform), FormerFile::Replace);
  platform.prompts.Tell(kFileExport, std::string(kFileExportComplete) + "\r\n");
}

bool AskAndExportSheet(const SpreadsheetTable& table, Platform& platform) {
  const auto path = platform.prompts.SaveFile(SaveQuestion());
  if (!path) return false;
  if (const auto warning = CheckSheetFile(*path)) {
    platform.prompts.Tell(warning->title, warning->text, Icon::Warning);
    return false;
  }
  ExportSheet(table, *path, platform);
  return true;
}

}  // namespace corvanta::inline reports
