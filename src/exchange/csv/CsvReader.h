#pragma once

#include "exchange/csv/CsvMapping.h"
#include "exchange/csv/CsvRows.h"
#include "exchange/import/ImportRecord.h"

#include <cstddef>
#include <string_view>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline exchange {

// Reads the rows of a CSV file by a mapping of its columns. Rows without an amount, a few rows
// behind the last one with a date (a balance, a note) and a row in which the file ends are told and
// left out.
class CsvReader {
 public:
  CsvReader(std::string_view text, const CsvMapping& mapping, const Locale& locale)
      : text_(text), mapping_(mapping), locale_(locale) {}

  void Run(ImportSink& sink) const;

  // The transaction that a row holds; false for a row that holds none.
  [[nodiscard]] static bool ReadRow(const CsvRow& row, const CsvMapping& mapping,
                                    ImportRecord& record);

  // The number and the reference of a row: the ledger has one place for both.
  [[nodiscard]] static std::string ReferenceIn(const CsvRow& row, const CsvMapping& mapping);

  // What follows the transactions.
  struct End {
    std::size_t line = 0;  // the first that belongs to none of them
    bool isCut = false;    // it begins a row in which the file ends
  };
  // Few rows behind the last one with what is written as a date are a rest; otherwise there is
  // none.
  [[nodiscard]] End FindEnd() const;

 private:
  std::string_view text_;
  const CsvMapping& mapping_;
  const Locale& locale_;
};

}  // namespace corvanta::inline exchange
