#pragma once

#include <string>
#include <variant>
#include <vector>

namespace corvanta {

using SpreadsheetCell = std::variant<std::monostate, double, std::string>;

struct SpreadsheetTable {
  std::string name;  // of the sheet
  std::vector<std::string> headers;
  std::vector<std::vector<SpreadsheetCell>> rows;
};

// Writes one table as a spreadsheet file.
class Spreadsheet {
 public:
  virtual ~Spreadsheet() = default;
  // Throws PlatformError when the file cannot be written.
  virtual void Write(const SpreadsheetTable& table, const std::string& path) = 0;
};

// Office Open XML (.xlsx): header line in bold and frozen, numbers as numbers.
class XlsxSpreadsheet : public Spreadsheet {
 public:
  void Write(const SpreadsheetTable& table, const std::string& path) override;
};

}  // namespace corvanta
