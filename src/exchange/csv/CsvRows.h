#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline exchange {

struct CsvRow {
  std::size_t line = 0;    // where it begins
  std::size_t offset = 0;  // in the text, behind it
  std::vector<std::string> cells;
  bool hasOpenQuote = false;  // one that begins a cell and is never closed

  // Without a character in any cell.
  [[nodiscard]] bool IsBlank() const;
  // The cell of a column counted from 1, without blanks around it and what guards it from being a
  // formula; empty where there is none.
  [[nodiscard]] std::string_view Cell(int column) const;
};

// The rows of a CSV text: a cell that begins with a double quote runs to the closing one, over
// separators and line ends; a doubled quote inside stands for one. A quote that is never closed,
// or on a later line by what opens another cell, is an ordinary character.
class CsvRows {
 public:
  // `separator` is one character.
  CsvRows(std::string_view text, std::string_view separator) : text_(text), separator_(separator) {}

  // The next row, blank ones too; false when there is none.
  bool Next(CsvRow& row);

 private:
  // Each takes a cell from the current place and stops at its separator or line end.
  bool ReadQuoted(std::string& cell);
  void ReadPlain(std::string& cell);
  [[nodiscard]] bool IsAtSeparator() const;
  [[nodiscard]] bool IsAtEnd() const;
  void SkipLineEnd();

  std::string_view text_;
  std::string_view separator_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace corvanta::inline exchange
