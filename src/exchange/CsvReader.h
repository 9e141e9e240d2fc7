#pragma once

#include "exchange/CsvMapping.h"
#include "exchange/CsvRows.h"
#include "exchange/ImportRecord.h"

#include <string_view>

namespace corvanta {

class Locale;

// Reads the rows of a CSV file by a mapping of its columns. Rows without an amount and a few rows
// behind the last one with a date (a balance, a note) are told and left out.
class CsvReader {
 public:
  CsvReader(std::string_view text, const CsvMapping& mapping, const Locale& locale)
      : text_(text), mapping_(mapping), locale_(locale) {}

  void Run(ImportSink& sink) const;

  // The transaction that a row holds; false for a row that holds none.
  [[nodiscard]] static bool ReadRow(const CsvRow& row, const CsvMapping& mapping,
                                    ImportRecord& record);

  // The line of the last row with what is written as a date, where what follows it are only few
  // rows; otherwise a number above all lines.
  [[nodiscard]] std::size_t LastLine() const;

 private:
  std::string_view text_;
  const CsvMapping& mapping_;
  const Locale& locale_;
};

}  // namespace corvanta
