#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/StatusFilter.h"
#include "ledger/schedules/ScheduleRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {

class clsCorvanta;

// The accounts: their list with balances, saving and deleting.
class AccountBook {
 public:
  AccountBook(LedgerCore& core, clsCorvanta& ledger) : core_(core), ledger_(ledger) {}

  // All accounts with their balances (opening balance plus the rows that the filter shows), by
  // group and name. Closed accounts are left out unless asked for.
  [[nodiscard]] std::vector<AccountRow> Accounts(const StatusFilter& filter, bool includeClosed);
  [[nodiscard]] std::vector<AccountRow> Accounts(const TreeOptions& options);
  // The account of that name (without regard to case) or number-sign key ("#3"); nullopt when none.
  [[nodiscard]] std::optional<AccountRow> FindAccount(const std::string& nameOrKey);
  [[nodiscard]] std::optional<AccountRecord> ReadAccount(std::int64_t accountId);
  // A new account is in the group and currency of the record and opens with its balance.
  std::int64_t FindOrCreateAccount(const AccountRecord& account);
  // The key of another row of that name, or 0.
  [[nodiscard]] std::int64_t OtherAccount(const std::string& name, std::int64_t accountId);
  // Its opening balance is rounded to the decimals of its currency, and put so into the record; one
  // that is as it was stays to its last digit.
  std::int64_t SaveAccount(AccountRecord& record);
  [[nodiscard]] AccountUse UseOf(std::int64_t accountId);
  // Deletes an account that nothing uses; false for any other.
  bool DeleteUnusedAccount(std::int64_t accountId);
  // The account with its transactions and schedules and what is linked and attached to them. Other
  // halves in other accounts stay as ordinary rows; schedules of other accounts that transferred
  // into it are finished, and their forecasts deleted.
  void DeleteAccount(std::int64_t accountId);
  // Asks as often as the account's use demands, deletes, and says which schedules are finished by
  // that. True when the account is gone.
  bool DeleteAccount(std::int64_t accountId, Prompts& prompts);

 private:
  [[nodiscard]] double FittingOpening(const AccountRecord& record);
  [[nodiscard]] std::vector<ScheduleDetails> SchedulesInto(std::int64_t accountId);
  void FinishSchedulesInto(std::int64_t accountId);
  void DropDayRulesOf(std::int64_t accountId);

  LedgerCore& core_;
  clsCorvanta& ledger_;
};

}  // namespace corvanta::inline ledger
