#pragma once

#include "ledger/Keys.h"
#include "ledger/Warning.h"
#include "ledger/transactions/BulkChange.h"
#include "ledger/transactions/TransactionStatus.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline entry {

// What several transactions are changed to; what is empty leaves their column as it is.
struct MultiEditForm {
  std::int64_t accountId = 0;
  TypeChange type = TypeChange::None;
  std::string payment;
  std::string payee;
  std::string category;
  std::string subCategory;
  std::optional<TransactionStatus> status;
};

// The rules behind the editor of several transactions. Operations throw StoreError.
class MultiEditor {
 public:
  MultiEditor(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // The first rule that is broken, about the control of that name. The keys are those of Save.
  [[nodiscard]] std::optional<Warning> Check(const MultiEditForm& form, Keys keys);
  // Changes the transactions in their order, all or none, as one step that can be undone; returns
  // how many are other ones afterwards. Asks before it makes a category: nullopt when the person
  // declines (the field is cmbCategory) or asks to stop on the way, and nothing is written.
  std::optional<std::size_t> Save(const MultiEditForm& form, Keys keys);
  // Asks, then deletes; tells when there is nothing to delete. True when something was deleted.
  bool Delete(Keys keys);

 private:
  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta::inline entry
