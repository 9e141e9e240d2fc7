#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline invest {

inline constexpr std::string_view kCurrencySource = "CURRENCY";

// A row of tblStockData: where quotes or rates come from.
struct SourceRow {
  std::int64_t dataId = 0;
  std::string name;
  std::string url;  // with the word `key` where the symbol goes; empty for prices entered by hand
  std::string key;
  std::string type;  // "STOCK" or "CURRENCY"
  std::string lookUpUrl;
  std::int64_t occur = 0;  // 0: answers with comma-separated fields; otherwise with a page
  std::string start;       // in a page, what stands before the value
};

// Fetches values from the web sources of the data file. A fetch blocks for some seconds at most.
class MarketData {
 public:
  // Both outlive this object.
  MarketData(Connection& connection, Platform& platform);

  // The source of that key or, for 0, the first of that type by name ("STOCK", "CURRENCY"). nullopt
  // when there is none. Throws StoreError.
  [[nodiscard]] std::optional<SourceRow> GetSourceRow(std::string_view type, std::int64_t dataId);
  // The answer of the address as text. `ok` says whether it came whole; without it the text is
  // empty. `wipe` overwrites the temporary file that it was kept in before that is removed.
  [[nodiscard]] std::string DownloadText(const std::string& url, bool& ok, bool wipe);
  // Units of one currency for one of another, by their codes. The result are the fields of the
  // answer, of which the second is the rate in the locale's form; a rate that is no number or 0 is
  // "1". False, and the result empty, when there is no source or no answer with a rate in it.
  // Throws StoreError.
  [[nodiscard]] bool FetchRate(const std::string& fromCode, const std::string& toCode,
                               std::vector<std::string>& result);
  // A number with "." before the decimals and "," between groups, in the locale's separators.
  [[nodiscard]] std::string NormaliseNumber(std::string_view text) const;
  // What such a text stands for, also with an exponent; nullopt when it is no number.
  [[nodiscard]] std::optional<double> NumberOf(std::string_view normalised) const;

 private:
  Connection& connection_;
  Platform& platform_;
  std::string decimal_;
  std::string group_;
};

}  // namespace corvanta::inline invest
