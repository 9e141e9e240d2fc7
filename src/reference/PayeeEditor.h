#pragma once

#include "ledger/ReferenceRecords.h"
#include "ledger/Warning.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>

namespace corvanta {

class Prompts;
class clsCorvanta;

// The rules behind the editor of payees. Operations throw StoreError.
class PayeeEditor {
 public:
  PayeeEditor(clsCorvanta& ledger, Prompts& prompts) : ledger_(ledger), prompts_(prompts) {}

  // nullopt when there is no such row.
  [[nodiscard]] std::optional<PayeeRecord> Load(std::int64_t key);
  // The first rule that is broken.
  [[nodiscard]] std::optional<Warning> Check(const PayeeRecord& form);
  // Writes what Check accepts, as one step that can be undone; returns the key.
  std::int64_t Save(PayeeRecord form);
  // Asks first. One that transactions, schedules or prices name is kept.
  Deletion Delete(std::int64_t key);

 private:
  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta
