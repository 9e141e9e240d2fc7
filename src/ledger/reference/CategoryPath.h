// A category as every list shows it: "Category" or "Category:SubCategory".
#pragma once

#include <string>

namespace corvanta::inline ledger {

class clsCorvanta;

struct CategoryName {
  std::string category;
  std::string subCategory;  // empty for a main category
};

// The two names as one text.
[[nodiscard]] std::string CategoryPath(const std::string& category, const std::string& subCategory);

// The two names of a text: what stands before its first colon and behind it, without blanks around
// them. A category whose own name has a colon in it is found by its whole name. Throws StoreError.
[[nodiscard]] CategoryName CategoryOf(clsCorvanta& ledger, const std::string& text);
// The same where a person can type the names apart: a path in the first stands for both.
[[nodiscard]] CategoryName CategoryOf(clsCorvanta& ledger, const std::string& category,
                                      const std::string& subCategory);

}  // namespace corvanta::inline ledger
