#pragma once

#include "ledger/accounts/AccountRow.h"
#include "ledger/register/RegisterReader.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

class RegisterRows;

// An account whose rows a filter chooses among.
struct FilteredAccount {
  std::int64_t accountId = 0;
  std::int64_t currencyId = 0;
  double openingBalance = 0;
  // Of all its rows that the statuses show, up to the period's end, where they are known already.
  std::optional<EntrySums> sums = std::nullopt;
};

// What keeps to the accounts and the days of the scope: SQL about T that begins with " AND ".
[[nodiscard]] std::string AccountCondition(const RegisterScope& scope);

// The rows of the accounts' registers, `whole` in the order of the accounts, that the scope's
// filter has chosen, by day. Each keeps the balance that its account had after it. What was paid in
// and out, and the difference ("this period"), are of the chosen rows, the balance is that of the
// accounts; all of them are absent where the accounts are not of one currency. Throws StoreError.
[[nodiscard]] std::shared_ptr<RegisterRows> FilterRegister(
    Connection& store, const RegisterScope& scope, const std::vector<FilteredAccount>& accounts,
    const std::vector<std::shared_ptr<RegisterRows>>& whole);

}  // namespace corvanta::inline ledger
