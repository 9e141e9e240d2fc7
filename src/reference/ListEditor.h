#pragma once

#include "reference/Deletion.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reference {

// "PAYMENT", "BANK", "ACCOUNTTYPE", "KEYWORDS" and the program's own "CURRENCY".
enum class ListKind { Payment, Bank, AccountType, Keywords, Currency };

struct ListItem {
  std::int64_t key = 0;
  std::string name;
  std::string description;
};

// What the list dialog shows and deletes. Operations throw StoreError.
class ListEditor {
 public:
  ListEditor(ListKind kind, clsCorvanta& ledger, Prompts& prompts)
      : kind_(kind), ledger_(ledger), prompts_(prompts) {}

  [[nodiscard]] ListKind Kind() const { return kind_; }
  [[nodiscard]] std::string Caption() const;
  // By name.
  [[nodiscard]] std::vector<ListItem> Items();
  // Asks first. What is in use is kept.
  Deletion Delete(std::int64_t key);

 private:
  ListKind kind_;
  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta::inline reference
