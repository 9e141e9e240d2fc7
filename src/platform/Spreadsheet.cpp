#include "platform/Spreadsheet.h"

#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "platform/SpreadsheetProgram.h"
#include "platform/TextCase.h"

#include <fmt/format.h>
#include <sys/mman.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

namespace corvanta::inline platform {
namespace {

constexpr std::size_t kLongestSheetName = 31;
constexpr std::size_t kLongestCell = 32767;
constexpr std::size_t kMaxXlsRows = 65536;
constexpr std::size_t kMaxXlsColumns = 256;
constexpr double kNarrowestColumn = 8;
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

SpreadsheetKind KindOf(const SpreadsheetTable& table, std::size_t column) {
  return column < table.columns.size() ? table.columns[column].kind : SpreadsheetKind::Text;
}

// About as many characters as the cell shows.
std::size_t ShownLength(const SpreadsheetCell& cell, SpreadsheetKind kind, int decimals) {
  constexpr std::size_t kDayLength = 10;
  if (const auto* text = std::get_if<std::string>(&cell)) return TextLength(*text);
  if (std::holds_alternative<Date>(cell)) return kDayLength;
  const auto* number = std::get_if<double>(&cell);
  const auto* sum = std::get_if<SpreadsheetSum>(&cell);
  if (number == nullptr && sum == nullptr) return 0;
  const double value = number != nullptr ? *number : sum->value;
  if (kind != SpreadsheetKind::Money) return fmt::format("{}", value).size();
  const std::size_t digits = fmt::format("{:.{}f}", value, std::max(decimals, 0)).size();
  return digits + digits / 3;
}

// Wide enough for the header, with its arrow, and what is below it, within reason.
double ColumnWidth(const SpreadsheetTable& table, std::size_t column) {
  constexpr std::size_t kArrow = 2;
  std::size_t longest = TextLength(table.columns[column].header) + kArrow;
  for (const SpreadsheetRow& row : table.rows) {
    if (column >= row.cells.size()) continue;
    longest =
        std::max(longest, ShownLength(row.cells[column], table.columns[column].kind, row.decimals));
  }
  return std::clamp(static_cast<double>(longest) + 2, kNarrowestColumn, kWidestColumn);
}

// The looks of cells, each made when the first cell has it.
class Formats {
 public:
  explicit Formats(lxw_workbook* book) : book_(book) {}

  [[nodiscard]] lxw_workbook* Book() const { return book_; }

  lxw_format* Of(SpreadsheetKind kind, int decimals, bool isTotal) {
    lxw_format*& format = made_[{kind, decimals, isTotal}];
    if (format == nullptr) format = Make(kind, decimals, isTotal);
    return format;
  }

 private:
  lxw_format* Make(SpreadsheetKind kind, int decimals, bool isTotal) {
    lxw_format* format = workbook_add_format(book_);
    if (kind == SpreadsheetKind::Money) {
      format_set_num_format(format, MoneyFormat(decimals).c_str());
    } else if (kind == SpreadsheetKind::Count) {
      format_set_num_format(format, "#,##0");
    } else if (kind == SpreadsheetKind::Date) {
      format_set_num_format_index(format, kShortDate);
    }
    if (isTotal) {
      format_set_bold(format);
      format_set_top(format, LXW_BORDER_THIN);
    }
    return format;
  }
  static std::string MoneyFormat(int decimals) {
    const std::string whole = "#,##0";
    return decimals <= 0 ? whole
                         : whole + "." + std::string(static_cast<std::size_t>(decimals), '0');
  }

  static constexpr std::uint8_t kShortDate = 14;  // in the order of whoever looks at it
  lxw_workbook* book_;
  std::map<std::tuple<SpreadsheetKind, int, bool>, lxw_format*> made_;
};

std::string SumFormula(const SpreadsheetSum& sum, std::size_t column) {
  const auto first = static_cast<lxw_row_t>(sum.firstRow + 1);  // below the header
  const auto last = static_cast<lxw_row_t>(sum.lastRow + 1);
  std::array<char, LXW_MAX_CELL_RANGE_LENGTH> range{};
  lxw_rowcol_to_range(range.data(), first, static_cast<lxw_col_t>(column), last,
                      static_cast<lxw_col_t>(column));
  // This one leaves other totals, and rows that a filter hides, out.
  if (!sum.only) return std::string("=SUBTOTAL(9,") + range.data() + ")";
  std::array<char, LXW_MAX_CELL_RANGE_LENGTH> texts{};
  const auto which = static_cast<lxw_col_t>(sum.only->column);
  lxw_rowcol_to_range_abs(texts.data(), first, which, last, which);
  return std::string("=SUMIF(") + texts.data() + ",\"" + sum.only->text + "\"," + range.data() +
         ")";
}

// The rows of a table on a sheet.
class SheetWriter {
 public:
  SheetWriter(lxw_workbook* book, lxw_worksheet* sheet, const SpreadsheetTable& table)
      : formats_(book), sheet_(sheet), table_(table) {}

  void Write() {
    lxw_format* bold = workbook_add_format(formats_.Book());
    format_set_bold(bold);
    for (std::size_t column = 0; column < table_.columns.size(); ++column) {
      const auto c = static_cast<lxw_col_t>(column);
      worksheet_set_column(sheet_, c, c, ColumnWidth(table_, column), nullptr);
      worksheet_write_string(
          sheet_, 0, c, FirstCharacters(table_.columns[column].header, kLongestCell).c_str(), bold);
    }
    for (std::size_t row = 0; row < table_.rows.size(); ++row) {
      for (std::size_t column = 0; column < table_.rows[row].cells.size(); ++column) {
        WriteCell(row, column);
      }
    }
    Arrange();
  }

 private:
  // The header stays in sight, on paper, too; the totals at the end stay below what is filtered.
  void Arrange() {
    worksheet_freeze_panes(sheet_, 1, 0);
    worksheet_repeat_rows(sheet_, 0, 0);
    worksheet_fit_to_pages(sheet_, 1, 0);
    std::size_t rows = table_.rows.size();
    while (rows > 0 && table_.rows[rows - 1].isTotal) --rows;
    if (rows == 0 || table_.columns.empty()) return;
    worksheet_autofilter(sheet_, 0, 0, static_cast<lxw_row_t>(rows),
                         static_cast<lxw_col_t>(table_.columns.size() - 1));
  }

  void WriteCell(std::size_t row, std::size_t column) {
    const SpreadsheetRow& line = table_.rows[row];
    const SpreadsheetCell& cell = line.cells[column];
    const auto r = static_cast<lxw_row_t>(row + 1);
    const auto c = static_cast<lxw_col_t>(column);
    lxw_format* format = formats_.Of(KindOf(table_, column), line.decimals, line.isTotal);
    if (const auto* number = std::get_if<double>(&cell)) {
      // The form has no way to write infinity or not-a-number: such a cell stays empty.
      if (std::isfinite(*number)) worksheet_write_number(sheet_, r, c, *number, format);
    } else if (const auto* text = std::get_if<std::string>(&cell)) {
      worksheet_write_string(sheet_, r, c, FirstCharacters(*text, kLongestCell).c_str(), format);
    } else if (const auto* day = std::get_if<Date>(&cell)) {
      WriteDay(r, c, *day, format);
    } else if (const auto* sum = std::get_if<SpreadsheetSum>(&cell)) {
      worksheet_write_formula_num(sheet_, r, c, SumFormula(*sum, column).c_str(), format,
                                  sum->value);
    } else if (line.isTotal) {
      worksheet_write_blank(sheet_, r, c, format);
    }
  }

  void WriteDay(lxw_row_t row, lxw_col_t column, Date day, lxw_format* format) {
    // The form counts its days from 1900.
    if (day.Year() < 1900) {
      worksheet_write_string(sheet_, row, column, day.ToIso().c_str(), format);
      return;
    }
    lxw_datetime moment{day.Year(), day.Month(), day.Day(), 0, 0, 0};
    worksheet_write_datetime(sheet_, row, column, &moment, format);
  }

  Formats formats_;
  lxw_worksheet* sheet_;
  const SpreadsheetTable& table_;
};

bool Fits(const SpreadsheetTable& table, std::size_t rows, std::size_t columns) {
  return table.rows.size() < rows && table.columns.size() <= columns &&
         std::ranges::all_of(
             table.rows, [&](const SpreadsheetRow& row) { return row.cells.size() <= columns; });
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
  if (sheet != nullptr) SheetWriter(book, sheet, table).Write();
  const lxw_error error = workbook_close(book);
  if (error != LXW_NO_ERROR || sheet == nullptr) {
    throw PlatformError(std::string("Cannot make the spreadsheet: ") + lxw_strerror(error));
  }
  return ReadFile(path, kLargest);
}

}  // namespace

WorkbookSpreadsheet::WorkbookSpreadsheet() : WorkbookSpreadsheet(ProgramFolders()) {}

WorkbookSpreadsheet::WorkbookSpreadsheet(std::vector<std::string> folders)
    : folders_(std::move(folders)) {}

std::string WorkbookSpreadsheet::Render(const SpreadsheetTable& table, SpreadsheetForm form) {
  if (!Fits(table, LXW_ROW_MAX, LXW_COL_MAX)) {
    throw PlatformError("The list is too large for a spreadsheet. Narrow it and try again.");
  }
  if (form == SpreadsheetForm::Xlsx) return RenderXlsx(table);
  if (!Fits(table, kMaxXlsRows, kMaxXlsColumns)) {
    throw PlatformError(
        "The list is too large for an .xls file. Choose a name that ends in .xlsx instead.");
  }
  const SpreadsheetProgram program(folders_);
  if (!program.IsInstalled()) throw PlatformError(kNoSpreadsheetProgram);
  return program.Convert(RenderXlsx(table), "xls");
}

}  // namespace corvanta::inline platform
