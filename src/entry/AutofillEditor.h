#pragma once

#include "entry/TransactionForm.h"
#include "ledger/Warning.h"
#include "platform/Date.h"

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

struct AutofillForm {
  std::int64_t transactionId = 0;  // 0 for a new row
  std::int64_t accountId = 0;
  Date date;
  std::optional<double> amount = 0;  // unsigned; nullopt is no number
  EntryType type = EntryType::None;  // Expense or Income
  std::int64_t payeeId = 0;          // 0 not chosen, like the category
  std::int64_t categoryId = 0;
};

// The rules behind the quick entry of a transaction. Operations throw StoreError.
class AutofillEditor {
 public:
  AutofillEditor(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // A new expense of today in that account.
  [[nodiscard]] AutofillForm New(std::int64_t accountId);
  // nullopt when there is no such row, and for a transfer, a split line or an investment
  // transaction, which the full editor is for.
  [[nodiscard]] std::optional<AutofillForm> Load(std::int64_t key);

  // The category of the payee's last ordinary transaction in the account; 0 without one.
  [[nodiscard]] std::int64_t ProposeCategory(std::int64_t accountId, std::int64_t payeeId);

  // The first rule that is broken, about the control of that name.
  [[nodiscard]] std::optional<Warning> Check(const AutofillForm& form);
  // Writes what Check accepts, as one step that can be undone; returns the key. 0 when there is no
  // earlier transaction to take the rest from, which has then been told.
  std::int64_t Save(const AutofillForm& form);
  // What the full editor goes on with: the same transaction, as far as it has been entered. `payee`
  // and `category` are what is typed where nothing is chosen: names that it may make.
  [[nodiscard]] TransactionForm Details(const AutofillForm& form, const std::string& payee = {},
                                        const std::string& category = {});

 private:
  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta::inline entry
