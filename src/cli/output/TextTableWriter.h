#pragma once

#include "cli/output/TableWriter.h"

#include <string>
#include <vector>

namespace corvanta::inline sql {
class Value;
}

namespace corvanta::inline cli {

// Columns for a person's eye: the header underlined, numbers to the right, numbers and dates as the
// locale writes them, NULL blank. A row stays a line, and no value steers the terminal: line ends
// become blanks, the rest is as ShownText has it.
class TextTableWriter : public TableWriter {
 public:
  explicit TextTableWriter(const Locale& locale) : locale_(locale) {}
  void Write(const OutputTable& table, std::ostream& out) const override;

 private:
  // The cells of one column, header first.
  [[nodiscard]] std::vector<std::string> Cells(const OutputTable& table, std::size_t column) const;
  [[nodiscard]] std::string NumberCell(double number, int decimals) const;
  [[nodiscard]] std::string DateCell(const std::string& iso) const;

  const Locale& locale_;
};

}  // namespace corvanta::inline cli
