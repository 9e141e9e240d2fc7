#pragma once

#include "ledger/Warning.h"
#include "ledger/reference/ReferenceRecords.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reference {

// The rules behind the editors of account groups, banks, payees, payment types, currencies and
// keywords.
// Operations throw StoreError.
template <typename Record>
class ReferenceEditor {
 public:
  ReferenceEditor(clsCorvanta& ledger, Prompts& prompts) : ledger_(ledger), prompts_(prompts) {}

  // nullopt when there is no such row.
  [[nodiscard]] std::optional<Record> Load(std::int64_t key);
  // The first rule that is broken. A row that the program finds by its name keeps it.
  [[nodiscard]] std::optional<Warning> Check(const Record& form);
  // Writes what Check accepts, as one step that can be undone; returns the key.
  std::int64_t Save(Record form);
  // Asks first, with what the caller adds to the question. What something uses is kept; a row that
  // is gone already is a change.
  Deletion Delete(std::int64_t key, const std::string& more = {});

 private:
  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta::inline reference
