#pragma once

#include "ledger/ReferenceRecords.h"
#include "ledger/Warning.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>

namespace corvanta {

class Prompts;
class clsCorvanta;

// The rules behind the editor of payment types. Operations throw StoreError.
class PaymentEditor {
 public:
  PaymentEditor(clsCorvanta& ledger, Prompts& prompts) : ledger_(ledger), prompts_(prompts) {}

  // nullopt when there is no such row.
  [[nodiscard]] std::optional<PaymentRecord> Load(std::int64_t key);
  // The first rule that is broken. "Import" keeps its name: imports find it by that.
  [[nodiscard]] std::optional<Warning> Check(const PaymentRecord& form);
  // Writes what Check accepts, as one step that can be undone; returns the key.
  std::int64_t Save(PaymentRecord form);
  // Asks first. One that transactions or schedules name is kept, and so is "Import".
  Deletion Delete(std::int64_t key);
  // The same behind a question of the caller's.
  Deletion DeleteUnasked(std::int64_t key);

 private:
  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta
