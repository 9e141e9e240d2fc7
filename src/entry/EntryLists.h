// What the boxes of the entry dialogs offer. Functions throw StoreError.
#pragma once

#include "reference/AccountChoices.h"

#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline entry {

// By name, without investments.
[[nodiscard]] std::vector<Choice> PayeeChoices(clsCorvanta& ledger);
[[nodiscard]] std::vector<Choice> PaymentChoices(clsCorvanta& ledger);
// Main categories by name.
[[nodiscard]] std::vector<std::string> CategoryNames(clsCorvanta& ledger);
// The sub-categories of the category of that name, in whatever case, by name.
[[nodiscard]] std::vector<std::string> SubCategoryNames(clsCorvanta& ledger,
                                                        const std::string& category);
// Every category and sub-category as "Category" or "Category:SubCategory", by name.
[[nodiscard]] std::vector<Choice> CategoryPairs(clsCorvanta& ledger);

}  // namespace corvanta::inline entry
