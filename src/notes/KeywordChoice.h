#pragma once

#include "ledger/Keys.h"
#include "ledger/Warning.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline notes {

enum class KeywordUse { None, Some, All };

// A keyword, and how many of the transactions have it.
struct KeywordMark {
  std::string keyword;
  KeywordUse use = KeywordUse::None;
};

// The rules behind choosing the keywords of one transaction or of several. Operations throw
// StoreError.
class KeywordChoice {
 public:
  KeywordChoice(clsCorvanta& ledger, Platform& platform, Keys transactions)
      : ledger_(ledger), platform_(platform), keys_(transactions.begin(), transactions.end()) {}

  // Why they cannot be changed: one of them is in a closed account.
  [[nodiscard]] std::optional<Warning> CheckOpen();
  // All keywords, by name.
  [[nodiscard]] std::vector<KeywordMark> Marks();
  // The first rule that a new keyword of that name breaks, about the control "txtKeyword".
  [[nodiscard]] std::optional<Warning> CheckNew(const std::string& name);
  // Gives all of the transactions the keywords (None takes it from them, Some leaves it as it is)
  // as one step; those that are new are made. True when something was changed.
  bool Save(const std::vector<KeywordMark>& marks);

  [[nodiscard]] std::size_t Count() const { return keys_.size(); }

 private:
  [[nodiscard]] std::map<std::string, std::size_t> Counts();

  clsCorvanta& ledger_;
  Platform& platform_;
  std::vector<std::int64_t> keys_;
};

}  // namespace corvanta::inline notes
