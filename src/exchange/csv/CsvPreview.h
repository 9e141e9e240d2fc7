#pragma once

#include "exchange/csv/CsvMapping.h"
#include "exchange/csv/CsvRows.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline exchange {

// A row of the file as it stands there and as it will be read.
struct CsvPreviewRow {
  int number = 0;  // from 1
  std::vector<std::string> cells;
  bool isSkipped = false;  // it holds no transaction: before the first, without an amount, a rest
  // Where the row is a transaction; date and amount as the locale writes them.
  std::string date;
  std::string payee;
  std::string category;
  std::string amount;
  std::string description;
  std::string reference;
  std::string problem;  // why it cannot be read, in words for a person
};

struct CsvPreview {
  int columns = 0;                  // of the widest row
  std::vector<CsvPreviewRow> rows;  // the first of the file
  bool isWhole = false;             // they are all there are
  bool hasDescriptions = false;     // the mapping names a column of them
  bool hasReferences = false;
};

inline constexpr int kPreviewRows = 50;

// The first rows of the text. Columns that the mapping does not name stay unread.
[[nodiscard]] CsvPreview ReadPreview(std::string_view text, const CsvMapping& mapping,
                                     const Locale& locale);

// What the text looks like: separator, rows above the first transaction, columns by their headings
// and contents, order of the dates, and whether a zero stands for an empty cell.
[[nodiscard]] CsvMapping ProposeMapping(std::string_view text, const Locale& locale);

// The order of the dates in the mapped column, found from all its rows.
[[nodiscard]] DateOrder FindDateOrder(std::string_view text, const CsvMapping& mapping,
                                      const Locale& locale);

// The headings of a mapped text, by which a saved mapping is found again: the last row that is
// skipped. Empty where none is.
[[nodiscard]] std::string HeaderOf(std::string_view text, const CsvMapping& mapping);

// The first `most` rows.
[[nodiscard]] std::vector<CsvRow> FirstRows(std::string_view text, std::string_view separator,
                                            int most);

}  // namespace corvanta::inline exchange
