#pragma once

#include "ledger/Warning.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reference {

enum class MergeKind { Payee, Category };

struct MergeItem {
  std::int64_t key = 0;
  std::string name;
};

// Moves all that uses one payee or category to another one. Operations throw StoreError.
class MergeEditor {
 public:
  MergeEditor(MergeKind kind, clsCorvanta& ledger, Prompts& prompts)
      : kind_(kind), ledger_(ledger), prompts_(prompts) {}

  // "PAYEE" or "CATEGORY", and the words for a person: "Payee" or "Category".
  [[nodiscard]] std::string ListWord() const;
  [[nodiscard]] std::string Word() const;
  [[nodiscard]] std::string Caption() const;      // "Merge Payee"
  [[nodiscard]] std::string TargetLabel() const;  // "Payee to Merge into"

  // All items of the kind by name, the source among them.
  [[nodiscard]] std::vector<MergeItem> Items();
  // Why the source cannot be merged into the target, whose key is 0 when none was chosen.
  [[nodiscard]] std::optional<Warning> Check(std::int64_t source, std::int64_t target);
  // Asks, moves and tells. The source stays, unused. False when the person declines.
  bool Merge(std::int64_t source, const MergeItem& target);

 private:
  MergeKind kind_;
  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta::inline reference
