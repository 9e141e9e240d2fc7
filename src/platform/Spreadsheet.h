#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace corvanta::inline platform {

// A total of cells of its own column, which stays right when they are changed there.
struct SpreadsheetSum {
  double value = 0;          // what they come to now
  std::size_t firstRow = 0;  // from 0, both included
  std::size_t lastRow = 0;
  // Only of the rows that have this text in that column; without it, of all that are no totals.
  struct Only {
    std::size_t column = 0;
    std::string text;  // letters and digits
  };
  std::optional<Only> only = std::nullopt;
};

using SpreadsheetCell = std::variant<std::monostate, double, std::string, Date, SpreadsheetSum>;

enum class SpreadsheetKind {
  Text,
  Money,   // with the decimals of its row
  Number,  // with as many as it has
  Count,   // with none
  Date
};

struct SpreadsheetColumn {
  std::string header;
  SpreadsheetKind kind = SpreadsheetKind::Text;
};

struct SpreadsheetRow {
  std::vector<SpreadsheetCell> cells;
  int decimals = 2;  // of its money
  bool isTotal = false;
};

struct SpreadsheetTable {
  std::string name;  // of the sheet
  std::vector<SpreadsheetColumn> columns;
  std::vector<SpreadsheetRow> rows;
};

enum class SpreadsheetForm {
  Xls,  // Excel 97 to 2003
  Xlsx  // Office Open XML
};

// Where there is no program that writes the older form.
inline constexpr const char* kNoSpreadsheetProgram =
    "Microsoft Excel not installed. Cannot create export file";

// Makes a spreadsheet file of one table.
class Spreadsheet {
 public:
  virtual ~Spreadsheet() = default;
  // The bytes of the file: the header line in bold, frozen and with filters, columns as wide as
  // what is in them, numbers and days as such, texts never as formulas. Throws PlatformError when
  // the table is too large for that form, and when no program is installed that writes it.
  [[nodiscard]] virtual std::string Render(const SpreadsheetTable& table, SpreadsheetForm form) = 0;
};

class WorkbookSpreadsheet : public Spreadsheet {
 public:
  // `folders` are looked through for a spreadsheet program; those of the environment by default.
  WorkbookSpreadsheet();
  explicit WorkbookSpreadsheet(std::vector<std::string> folders);
  [[nodiscard]] std::string Render(const SpreadsheetTable& table, SpreadsheetForm form) override;

 private:
  std::vector<std::string> folders_;
};

}  // namespace corvanta::inline platform
