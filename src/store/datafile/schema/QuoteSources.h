// The sources of quotes and exchange rates that every data file has.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline datafile {

struct QuoteSource {
  int dataId;
  std::string_view name;
  std::string_view url;  // `key` stands in it where the symbol goes; empty for none
  std::string_view key;
  std::string_view type;
  int occur;  // 1 when the answer is a page in which `start` marks the price
  std::string_view start;
  std::string_view lookUpUrl;
};

inline constexpr int kUkStockSource = 3;
inline constexpr int kMoneyStockSource = 5;
inline constexpr int kMarketStockSource = 6;

// The source of that key, 1 to 9.
[[nodiscard]] const QuoteSource& DefaultQuoteSource(int dataId);
// One INSERT per source, with its key.
[[nodiscard]] std::vector<std::string> QuoteSourceStatements();

}  // namespace corvanta::inline datafile
