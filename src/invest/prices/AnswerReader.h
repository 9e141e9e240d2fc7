// What a source is asked, and where the value stands in what it answers.
#pragma once

#include "invest/prices/SourceRow.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline invest {

// The word in an address that the person's own key takes the place of.
inline constexpr std::string_view kOwnKeyWord = "APIKEY";

// A symbol, or two currencies by their codes.
struct SourceQuestion {
  std::string symbol;  // of two currencies both codes, one directly behind the other
  std::string from;
  std::string to;

  [[nodiscard]] static SourceQuestion OfStock(const std::string& symbol) {
    return {symbol, {}, {}};
  }
  [[nodiscard]] static SourceQuestion OfRate(const std::string& from, const std::string& to) {
    return {from + to, from, to};
  }
};

// The address with what is asked in the place of every word that stands for it: the source's key
// word wherever it occurs, and, where they are words by themselves, FROM and TO of two currencies
// and APIKEY. What an address cannot hold is percent-encoded in them. Cases count.
[[nodiscard]] std::string AddressOf(const SourceRow& source, const SourceQuestion& question);

// What an answer holds, as it stands there: the second field is the value, and of a line of fields
// the others are, too. Without fields there is none, and `problem` says why, for a person.
struct SourceReading {
  std::vector<std::string> fields;
  std::string problem;
};
[[nodiscard]] SourceReading ReadAnswer(const SourceRow& source, const SourceQuestion& question,
                                       std::string_view answer);

// The text with stars in the place of the source's own key, however it is written in it.
[[nodiscard]] std::string WithoutOwnKey(const SourceRow& source, std::string text);

}  // namespace corvanta::inline invest
