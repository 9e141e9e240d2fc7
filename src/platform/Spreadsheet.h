#pragma once

#include <string>
#include <variant>
#include <vector>

namespace corvanta::inline platform {

using SpreadsheetCell = std::variant<std::monostate, double, std::string>;

struct SpreadsheetTable {
  std::string name;  // of the sheet
  std::vector<std::string> headers;
  std::vector<std::vector<SpreadsheetCell>> rows;
};

enum class SpreadsheetForm {
  Xls,  // Excel 97 to 2003
  Xlsx  // Office Open XML
};

// Makes a spreadsheet file of one table.
class Spreadsheet {
 public:
  virtual ~Spreadsheet() = default;
  // The bytes of the file: header line in bold and frozen, numbers as numbers, texts never as
  // formulas. Throws PlatformError when the table is too large for that form.
  [[nodiscard]] virtual std::string Render(const SpreadsheetTable& table, SpreadsheetForm form) = 0;
};

class WorkbookSpreadsheet : public Spreadsheet {
 public:
  [[nodiscard]] std::string Render(const SpreadsheetTable& table, SpreadsheetForm form) override;
};

}  // namespace corvanta::inline platform
