#pragma once

#include "ledger/ReferenceRecords.h"
#include "ledger/Warning.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>

namespace corvanta {

class Prompts;
class clsCorvanta;

// The rules behind the editor of keywords. Operations throw StoreError.
class KeywordEditor {
 public:
  KeywordEditor(clsCorvanta& ledger, Prompts& prompts) : ledger_(ledger), prompts_(prompts) {}

  // nullopt when there is no such row.
  [[nodiscard]] std::optional<KeywordRecord> Load(std::int64_t key);
  // The first rule that is broken.
  [[nodiscard]] std::optional<Warning> Check(const KeywordRecord& form);
  // Writes what Check accepts, as one step that can be undone; returns the key.
  std::int64_t Save(KeywordRecord form);
  // Asks first. Transactions lose the keyword.
  Deletion Delete(std::int64_t key);
  // The same behind a question of the caller's.
  Deletion DeleteUnasked(std::int64_t key);

 private:
  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta
