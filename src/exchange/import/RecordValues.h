#pragma once

#include "exchange/csv/StyleFinder.h"
#include "exchange/import/ImportRecord.h"
#include "ledger/investments/InvestmentRecord.h"
#include "platform/Date.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline exchange {

// What a record says, its texts read in the style of its file.
struct RecordValues {
  Date date;
  double total = 0;           // as the record states it, money out negative
  double amount = 0;          // what is booked: the sum of the lines where it has some
  std::vector<double> lines;  // the amounts of its splits
  // Of an investment's record.
  double price = 0;
  double quantity = 0;
  double commission = 0;
};

// Rounds its money to the decimals of the currency (its code) that it goes into; whether any of it
// had more.
bool FitCurrency(RecordValues& values, std::string_view currency);

// A value that is not understood, in words for a person.
struct RecordFault {
  std::size_t line = 0;
  std::string text;
};

// Whether the record is a transaction of an investment, and not of cash.
[[nodiscard]] bool IsHolding(const ImportRecord& record);

// The transaction of an investment, without its account and its investment.
[[nodiscard]] InvestmentTransaction HoldingOf(const ImportRecord& record,
                                              const RecordValues& values);

[[nodiscard]] std::variant<RecordValues, RecordFault> ReadValues(const ImportRecord& record,
                                                                 const ImportStyle& style,
                                                                 const Locale& locale);

}  // namespace corvanta::inline exchange
