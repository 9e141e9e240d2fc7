#pragma once

#include "ledger/Warning.h"
#include "ledger/investments/InvestmentRecord.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline invest {

// The rules behind the editor of investments. Operations throw StoreError.
class InvestEditor {
 public:
  InvestEditor(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // A new investment, both currencies being that of the account that was made last, or the user's
  // own while there is no account.
  [[nodiscard]] InvestmentRecord New();
  // nullopt when there is no such investment.
  [[nodiscard]] std::optional<InvestmentRecord> Load(std::int64_t key);
  // The first rule that is broken, about the control of that name.
  [[nodiscard]] std::optional<Warning> Check(const InvestmentRecord& form);
  // Writes what Check accepts, as one step that can be undone; returns the key. A conversion that
  // is not above 0 becomes 1.
  std::int64_t Save(InvestmentRecord form);
  // Asks, and says how many prices go with it. An investment with transactions is kept.
  Deletion Delete(std::int64_t key);
  // Opens the page of the source on which symbols are looked up. nullopt when that was done.
  [[nodiscard]] std::optional<Warning> LookUp(std::int64_t dataId);

 private:
  [[nodiscard]] std::int64_t DefaultCurrency();

  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta::inline invest
