// What the boxes of the entry dialogs offer. Functions throw StoreError.
#pragma once

#include "ledger/ReferenceRecords.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline entry {

struct EntryChoice {
  std::int64_t key = 0;
  std::string name;
};

// Open accounts by name, and those of the given keys even when they are closed.
[[nodiscard]] std::vector<EntryChoice> AccountChoices(clsCorvanta& ledger,
                                                      const std::vector<std::int64_t>& also = {});
// By name, without investments.
[[nodiscard]] std::vector<EntryChoice> PayeeChoices(clsCorvanta& ledger);
[[nodiscard]] std::vector<EntryChoice> PaymentChoices(clsCorvanta& ledger);
// Main categories by name.
[[nodiscard]] std::vector<std::string> CategoryNames(clsCorvanta& ledger);
// The sub-categories of the category of that name, in whatever case, by name.
[[nodiscard]] std::vector<std::string> SubCategoryNames(clsCorvanta& ledger,
                                                        const std::string& category);
// Every category and sub-category as "Category" or "Category:SubCategory", by name.
[[nodiscard]] std::vector<EntryChoice> CategoryPairs(clsCorvanta& ledger);

}  // namespace corvanta::inline entry
