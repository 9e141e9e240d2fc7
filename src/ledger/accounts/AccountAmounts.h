// What an account holds has the decimals of its own currency.
#pragma once

#include "ledger/Money.h"

#include <cstdint>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

struct RowLinks;

// Amounts on their way into an account, for the topics that write rows: every one of them asks here
// before it writes one. Operations throw StoreError.
class AccountAmounts {
 public:
  explicit AccountAmounts(Connection& store) : store_(store) {}

  // Rounded half away from zero to the decimals of the account's currency; two for an unknown one.
  [[nodiscard]] double In(std::int64_t accountId, double amount);
  // The same of the parts of an amount.
  [[nodiscard]] PartsInCurrency PartsIn(std::int64_t accountId);
  // As In, in place of what the row `former` holds: an amount that stays in its account and is
  // not changed stays to its last digit.
  [[nodiscard]] double Replacing(const RowLinks& former, std::int64_t accountId, double amount);

 private:
  Connection& store_;
};

}  // namespace corvanta::inline ledger
