#include "ledger/reference/CategoryPath.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "platform/TextCase.h"

namespace corvanta::inline ledger {

std::string CategoryPath(const std::string& category, const std::string& subCategory) {
  return subCategory.empty() ? category : category + ":" + subCategory;
}

CategoryName CategoryOf(clsCorvanta& ledger, const std::string& text) {
  return CategoryOf(ledger, text, {});
}

CategoryName CategoryOf(clsCorvanta& ledger, const std::string& category,
                        const std::string& subCategory) {
  const std::size_t colon = category.find(':');
  const bool isOneName =
      colon == std::string::npos || ledger.Categories().FindCategory(category, {}) != 0 ||
      (!subCategory.empty() && ledger.Categories().FindCategory(category, subCategory) != 0);
  if (isOneName) return {category, subCategory};
  return {std::string(Trim(category.substr(0, colon))),
          std::string(Trim(category.substr(colon + 1)))};
}

}  // namespace corvanta::inline ledger
