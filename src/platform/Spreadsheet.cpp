#include "platform/Spreadsheet.h"

#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "platform/TextCase.h"
#include "platform/XlsSpreadsheet.h"

#include <sys/mman.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace corvanta::inline platform {
namespace {

constexpr std::size_t kLongestSheetName = 31;
constexpr std::size_t kLongestCell = 32767;
constexpr std::size_t kMaxRows = LXW_ROW_MAX;
constexpr std::size_t kMaxColumns = LXW_COL_MAX;
constexpr double kWidestColumn = 60;

// The text's first characters, never half of one.
std::string FirstCharacters(const std::string& text, std::size_t most) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool starts = (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
    if (starts && count++ == most) return text.substr(0, i);
  }
  return text;
}

std::string SheetName(const std::string& wanted) {
  std::string name;
  for (const char c : wanted) {
    const bool isForbidden = std::string_view("[]:*?/\\").find(c) != std::string_view::npos ||
                             static_cast<unsigned char>(c) < 0x20;
    name += isForbidden ? ' ' : c;
  }
  name = FirstCharacters(name, kLongestSheetName);
  const auto isEdge = [](char c) { return c == '\'' || c == ' '; };
  while (!name.empty() && isEdge(name.front())) name.erase(0, 1);
  while (!name.empty() && isEdge(name.back())) name.pop_back();
  // The format keeps this one for itself.
  if (EqualFolded(name, "History")) name += "_";
  return name.empty() ? "Sheet1" : name;
}

void WriteCell(lxw_worksheet* sheet, std::size_t row, std::size_t column,
               const SpreadsheetCell& cell) {
  const auto r = static_cast<lxw_row_t>(row);
  const auto c = static_cast<lxw_col_t>(column);
  if (const auto* number = std::get_if<double>(&cell); number != nullptr) {
    // The format has no way to write infinity or not-a-number: such a cell stays empty.
    if (std::isfinite(*number)) worksheet_write_number(sheet, r, c, *number, nullptr);
  } else if (const auto* text = std::get_if<std::string>(&cell); text != nullptr) {
    worksheet_write_string(sheet, r, c, FirstCharacters(*text, kLongestCell).c_str(), nullptr);
  }
}

// Wide enough for the header and the texts below it, within reason.
double ColumnWidth(const SpreadsheetTable& table, std::size_t column) {
  std::size_t longest = TextLength(table.headers[column]);
  for (const auto& row : table.rows) {
    if (column >= row.size()) continue;
    if (const auto* text = std::get_if<std::string>(&row[column])) {
      longest = std::max(longest, TextLength(*text));
    }
  }
  return std::clamp(static_cast<double>(longest) + 2, 10.0, kWidestColumn);
}

void FillSheet(lxw_workbook* book, lxw_worksheet* sheet, const SpreadsheetTable& table) {
  lxw_format* bold = workbook_add_format(book);
  format_set_bold(bold);
  for (std::size_t column = 0; column < table.headers.size(); ++column) {
    const auto c = static_cast<lxw_col_t>(column);
    worksheet_set_column(sheet, c, c, ColumnWidth(table, column), nullptr);
    worksheet_write_string(sheet, 0, c,
                           FirstCharacters(table.headers[column], kLongestCell).c_str(), bold);
  }
  worksheet_freeze_panes(sheet, 1, 0);
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    for (std::size_t column = 0; column < table.rows[row].size(); ++column) {
      WriteCell(sheet, row + 1, column, table.rows[row][column]);
    }
  }
}

bool FitsSheet(const SpreadsheetTable& table) {
  return table.rows.size() < kMaxRows && table.headers.size() <= kMaxColumns &&
         std::all_of(table.rows.begin(), table.rows.end(),
                     [](const auto& row) { return row.size() <= kMaxColumns; });
}

// The library writes only into files; this one has no name that anybody else could meet.
std::string RenderXlsx(const SpreadsheetTable& table) {
  constexpr std::size_t kLargest = 1U << 30U;
  const FileHandle file(::memfd_create("spreadsheet", MFD_CLOEXEC));
  if (!file.IsOpen()) throw SystemError("Cannot make", "a spreadsheet", errno);
  const std::string path = "/proc/self/fd/" + std::to_string(file.Get());
  lxw_workbook* book = workbook_new(path.c_str());
  if (book == nullptr) throw PlatformError("There is not enough memory for the spreadsheet.");
  lxw_worksheet* sheet = workbook_add_worksheet(book, SheetName(table.name).c_str());
  if (sheet != nullptr) FillSheet(book, sheet, table);
  const lxw_error error = workbook_close(book);
  if (error != LXW_NO_ERROR || sheet == nullptr) {
    throw PlatformError(std::string("Cannot make the spreadsheet: ") + lxw_strerror(error));
  }
  return ReadFile(path, kLargest);
}

}  // namespace

std::string WorkbookSpreadsheet::Render(const SpreadsheetTable& table, SpreadsheetForm form) {
  if (!FitsSheet(table)) {
    throw PlatformError("The list is too large for a spreadsheet. Narrow it and try again.");
  }
  if (form == SpreadsheetForm::Xlsx) return RenderXlsx(table);
  if (!FitsXls(table)) {
    throw PlatformError(
        "The list is too large for an .xls file. Choose a name that ends in .xlsx instead.");
  }
  std::vector<double> widths;
  for (std::size_t i = 0; i < table.headers.size(); ++i) widths.push_back(ColumnWidth(table, i));
  return XlsWorkbookOf(table, SheetName(table.name), widths);
}

}  // namespace corvanta::inline platform
