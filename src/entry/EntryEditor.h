#pragma once

#include "entry/EntryForm.h"
#include "ledger/Warning.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline entry {

// What the editors of transactions and of schedules have in common. Operations throw StoreError.
class EntryEditor {
 public:
  // The code of the account's currency; empty for no account.
  [[nodiscard]] std::string CurrencyOf(std::int64_t accountId);
  // After a save that the person has declined: the control to go back to.
  [[nodiscard]] const std::string& DeclinedField() const { return declinedField_; }
  // Why the entry cannot be split now.
  [[nodiscard]] static std::optional<Warning> CheckAllocate(const EntryForm& form);

 protected:
  EntryEditor(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // For the closed ones among the accounts of a form, new or not.
  [[nodiscard]] std::optional<Warning> CheckAccounts(const EntryForm& form, bool isNew);
  // For a row that is gone.
  [[nodiscard]] static Warning Gone();
  // Whether the person agrees to what saving the settled form brings with it: a category that is
  // new, and the end of the lines where a split row becomes a transfer.
  [[nodiscard]] bool AgreeTo(const EntryForm& form);
  // Puts a settled form into a TransactionRecord or a ScheduleRecord, with names that are new.
  template <typename Record>
  void Fill(const EntryForm& form, Record& record);

  clsCorvanta& ledger_;
  Platform& platform_;

 private:
  std::string declinedField_;
};

}  // namespace corvanta::inline entry
