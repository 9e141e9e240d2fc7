#pragma once

#include "invest/prices/AnswerReader.h"
#include "invest/prices/SourceBook.h"
#include "invest/prices/SourceRow.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline invest {

// Why the last fetch gave no value. In words for a person; no text when it gave one.
struct FetchTrouble {
  std::string text;
  bool isServiceDead = false;  // nobody answered: whoever asks there again waits as long
  bool wasStopped = false;     // by the person
};

// Fetches values from the web sources of the data file. A fetch takes some seconds at most, shows
// in the status bar what it waits for, and ends when the person stops it.
class MarketData {
 public:
  // Both outlive this object.
  MarketData(clsCorvanta& ledger, Platform& platform);

  // The source of that key or, for 0, the first of that type by name ("STOCK", "CURRENCY"). nullopt
  // when there is none. Throws StoreError.
  [[nodiscard]] std::optional<SourceRow> GetSourceRow(std::string_view type, std::int64_t dataId);
  // The answer of the address as text. `ok` says whether it came whole; without it the text is
  // empty. `wipe` overwrites the temporary file that it was kept in before that is removed.
  [[nodiscard]] std::string DownloadText(const std::string& url, bool& ok, bool wipe);
  // The quote of a symbol by the source of that key. The result are the fields of the answer, of
  // which the second is the value in the locale's form; of a line of fields the third and fourth
  // are day and time, the fifth is the change. False when there is no such source, it has no
  // address, or its answer did not come; an answer may hold no value all the same: its result has
  // no second field then, or one that is no number. Throws StoreError.
  [[nodiscard]] bool FetchQuote(const std::string& symbol, std::vector<std::string>& result,
                                std::int64_t dataId);
  // Units of one currency for one of another, by their codes. The result as for a quote. In a line
  // of fields a rate that is no number or 0 is "1", and Trouble() says so. A rate that came is kept
  // as today's. False, and the result empty, when there is no source or no answer with a rate in
  // it. Throws StoreError.
  [[nodiscard]] bool FetchRate(const std::string& fromCode, const std::string& toCode,
                               std::vector<std::string>& result);
  // Of the last fetch; also of one that gave 1 because the answer held no rate.
  [[nodiscard]] const FetchTrouble& Trouble() const { return trouble_; }

  // What asking a source comes to, for a person who tries it: nothing is stored.
  struct Trial {
    std::string answer;           // as it came; empty when none did. Holds no own key.
    std::string found;            // what stands where the value should
    std::optional<double> value;  // nullopt when that is no number
    std::string problem;          // why there is no value, in words
  };
  [[nodiscard]] Trial Try(const SourceRow& source, const SourceQuestion& question);

  // A number with "." before the decimals and "," between groups, in the locale's separators.
  [[nodiscard]] std::string NormaliseNumber(std::string_view text) const;
  // What such a text stands for, also with an exponent; nullopt when it is no number.
  [[nodiscard]] std::optional<double> NumberOf(std::string_view normalised) const;

 private:
  // False when no answer came, which is the trouble then.
  [[nodiscard]] bool Ask(const SourceRow& source, const SourceQuestion& question, bool wipe,
                         std::string& answer);
  // Reads the value and writes it in the locale's form.
  [[nodiscard]] std::vector<std::string> Read(const SourceRow& source,
                                              const SourceQuestion& question,
                                              const std::string& answer);
  void Keep(const SourceRow& source, const SourceQuestion& question, double rate);
  bool Fail(const std::string& text);

  clsCorvanta& ledger_;
  Platform& platform_;
  SourceBook sources_;
  std::string decimal_;
  std::string group_;
  FetchTrouble trouble_;
};

}  // namespace corvanta::inline invest
