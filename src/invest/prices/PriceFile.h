// A history of prices in a CSV file.
#pragma once

#include "exchange/csv/CsvMapping.h"
#include "ledger/investments/PriceBook.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline invest {

// What a text looks like: separator, rows above the first price, the columns of the date and, as
// that of the income, of the price, and the order of the dates. A heading that names a closing
// price goes before others.
[[nodiscard]] CsvMapping ProposePriceMapping(std::string_view text, const Locale& locale);

struct PriceFileRows {
  struct Problem {
    std::size_t line = 0;
    std::string text;  // in words for a person
  };
  std::vector<DayPrice> prices;   // in the order of the file
  std::vector<Problem> problems;  // of the rows that hold no price
};

// The prices of the rows below those that the mapping skips. Blank rows are left out; a row without
// a day or without a price above 0 is a problem. A number with one mark is read as the numbers of
// the file show that they are meant.
[[nodiscard]] PriceFileRows ReadPriceFile(std::string_view text, const CsvMapping& mapping,
                                          const Locale& locale);

}  // namespace corvanta::inline invest
