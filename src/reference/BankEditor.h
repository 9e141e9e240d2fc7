#pragma once

#include "ledger/ReferenceRecords.h"
#include "ledger/Warning.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>

namespace corvanta {

class Prompts;
class clsCorvanta;

// The rules behind the editor of banks. Operations throw StoreError.
class BankEditor {
 public:
  BankEditor(clsCorvanta& ledger, Prompts& prompts) : ledger_(ledger), prompts_(prompts) {}

  // nullopt when there is no such row.
  [[nodiscard]] std::optional<BankRecord> Load(std::int64_t key);
  // The first rule that is broken.
  [[nodiscard]] std::optional<Warning> Check(const BankRecord& form);
  // Writes what Check accepts, as one step that can be undone; returns the key.
  std::int64_t Save(BankRecord form);
  // Asks first. One that an account is at is kept.
  Deletion Delete(std::int64_t key);
  // The same behind a question of the caller's.
  Deletion DeleteUnasked(std::int64_t key);

 private:
  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta
