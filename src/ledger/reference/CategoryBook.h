#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/reference/ReferenceRecords.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

// Main categories and their sub-categories.
class CategoryBook {
 public:
  explicit CategoryBook(LedgerCore& core) : core_(core) {}

  [[nodiscard]] std::vector<CategoryRecord> Categories();
  // nullopt when there is none of that key.
  [[nodiscard]] std::optional<CategoryRecord> ReadCategory(std::int64_t categoryId);
  // A missing main category is made along with its sub-category; `type` (1 income, -1 expense) is
  // of a row that is made. A new sub-category is of its main category's type.
  std::int64_t FindOrCreateCategory(const std::string& category, const std::string& subCategory,
                                    int type);
  [[nodiscard]] std::int64_t FindCategory(const std::string& category,
                                          const std::string& subCategory);
  [[nodiscard]] std::int64_t OtherMainCategory(const std::string& name, std::int64_t categoryId);
  [[nodiscard]] std::int64_t OtherSubCategory(const std::string& category,
                                              const std::string& subCategory,
                                              std::int64_t categoryId);
  std::int64_t SaveCategory(CategoryRecord& record);
  // The main category and all its sub-categories take the new name and type.
  void RenameMainCategory(const std::string& oldName, const std::string& newName, int type);
  // A main category together with those of its sub-categories that nothing uses.
  CategoryDeletion DeleteCategory(std::int64_t categoryId);
  void MergeCategories(std::int64_t sourceId, std::int64_t targetId);

 private:
  bool DeleteOneCategory(std::int64_t categoryId);
  [[nodiscard]] std::vector<CategoryRecord> WithSubCategories(std::int64_t categoryId);

  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
