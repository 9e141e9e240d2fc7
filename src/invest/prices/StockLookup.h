#pragma once

#include "invest/WatchList.h"
#include "invest/prices/MarketData.h"
#include "ledger/Warning.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline invest {

// What a person has chosen for a download.
struct LookupForm {
  std::int64_t dataId = 0;  // the source; 0 for none
  std::string currency;     // the code of "Currency In"; empty for none
};

// What the list shows of an entry, as texts of the locale.
struct WatchValue {
  std::string value;
  std::string dateTime;
  std::string trend;
};

// A source to choose from.
struct WatchSource {
  std::int64_t dataId = 0;
  std::string name;
  std::string lookUpUrl;
};

// The rules behind the watch lists of quotes and of rates. Operations throw StoreError, and
// PlatformError where they write settings.
class StockLookup {
 public:
  // Both outlive this object.
  StockLookup(WatchMode mode, clsCorvanta& ledger, Platform& platform);

  [[nodiscard]] WatchMode Mode() const { return mode_; }
  // "Stock Lookup" or "Currency Lookup".
  [[nodiscard]] const char* Caption() const;
  [[nodiscard]] std::vector<WatchEntry> Entries() const { return list_.Entries(); }
  // By name. Rates come from one source alone, the first one.
  [[nodiscard]] std::vector<WatchSource> Sources();

  // The code that was chosen last as "Currency In"; empty where none was.
  [[nodiscard]] std::string Currency() const;
  void KeepCurrency(const std::string& code);

  // Adds a symbol, or the code of a currency. The rule that is broken, nothing being added then.
  [[nodiscard]] std::optional<Warning> Add(const std::string& symbol);
  // Asks, and deletes the entries of these numbers. False when the person does not want to.
  bool Delete(std::span<const int> numbers);

  // Called with the place of a symbol among those asked for, and what its answer says.
  using Show = std::function<void(std::size_t, const WatchValue&)>;
  // Fetches the values of the symbols in their order. Symbols without a value, and the end, are
  // told; what ends it before is returned, unless it is the person who stops it.
  [[nodiscard]] std::optional<Warning> Download(const LookupForm& form,
                                                std::span<const std::string> symbols,
                                                const Show& show);
  // Of the last download, what a person should know besides; empty for nothing.
  [[nodiscard]] const std::string& Note() const { return note_; }
  // Whether it ended because no answer came.
  [[nodiscard]] bool IsUnanswered() const { return isUnanswered_; }

  // Opens the page of the source on which symbols are looked up. nullopt when that was done.
  [[nodiscard]] std::optional<Warning> OpenLookUp(std::int64_t dataId);

 private:
  [[nodiscard]] std::optional<Warning> Check(const LookupForm& form) const;
  // False when no answer came.
  [[nodiscard]] bool Fetch(const LookupForm& form, const std::string& symbol,
                           std::vector<std::string>& result);
  [[nodiscard]] std::optional<WatchValue> Read(const std::vector<std::string>& result) const;
  [[nodiscard]] std::string Shown(const std::string& field) const;
  void Tell(const Warning& warning);

  WatchMode mode_;
  clsCorvanta& ledger_;
  Platform& platform_;
  MarketData market_;
  WatchList list_;
  std::string note_;
  bool isUnanswered_ = false;
};

}  // namespace corvanta::inline invest
