#pragma once

#include "ledger/Warning.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reference {

// The entry of the bank list that stands for no bank.
inline constexpr const char* kNoBank = "none";

struct AccountForm {
  std::int64_t accountId = 0;
  std::string account;
  std::string accountNo;
  std::string accountGroup;                  // typed or picked
  std::string bank = kNoBank;                // typed or picked; empty for none, too
  std::int64_t currencyId = 0;               // 0 not chosen
  std::optional<double> openingBalance = 0;  // nullopt for a text that is no number
  std::string description;
  bool closed = false;

  bool operator==(const AccountForm&) const = default;
};

// The rules behind the editor of accounts. Operations throw StoreError.
class AccountEditor {
 public:
  AccountEditor(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // A new account in the user's own currency; or of the group, the bank and the currency of that
  // account.
  [[nodiscard]] AccountForm New(std::int64_t like = 0);
  // nullopt when there is no such account.
  [[nodiscard]] std::optional<AccountForm> Load(std::int64_t key);
  // The first rule that is broken. A name may not begin with "Account:", which marks a transfer
  // among imported categories, nor be the import's choice of all accounts.
  [[nodiscard]] std::optional<Warning> Check(const AccountForm& form);
  // Writes what Check accepts, with a group and a bank that are new, as one step that can be
  // undone; returns the key.
  std::int64_t Save(const AccountForm& form);
  // Asks once, and twice for an account that is used, which goes with all that is in it.
  Deletion Delete(std::int64_t key);
  // Whether a bank can be added for the account: not while it is new.
  [[nodiscard]] static std::optional<Warning> CheckAddBank(std::int64_t key);

 private:
  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta::inline reference
