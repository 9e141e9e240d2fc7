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

struct CategoryForm {
  std::int64_t categoryId = 0;
  std::string category;
  std::string subCategory;           // empty for a main category
  int type = 0;                      // 1 income, -1 expense, 0 not chosen
  std::optional<double> budget = 0;  // per period; nullopt for a text that is no number
  std::int64_t periodId = 0;         // 0 not chosen
  std::string description;
};

// "Category", or "Category:SubCategory".
[[nodiscard]] std::string FullName(const CategoryRecord& category);

// The rules behind the editor of categories and their budgets. Operations throw StoreError.
class CategoryEditor {
 public:
  CategoryEditor(clsCorvanta& ledger, Prompts& prompts) : ledger_(ledger), prompts_(prompts) {}

  // nullopt when there is no such row.
  [[nodiscard]] std::optional<CategoryForm> Load(std::int64_t key);
  // The first rule that is broken. "Credit" and "Debit" keep their names: transfers find them by
  // those.
  [[nodiscard]] std::optional<Warning> Check(CategoryForm form);
  // Writes what Check accepts, as one step that can be undone. A main category with another name is
  // asked about: Yes takes its sub-categories along. A new sub-category brings its main category
  // with it where there is none, and is of its type where none was chosen. Returns the key, 0 when
  // the person has been told that a sub-category of the new name exists, and nothing was written.
  std::int64_t Save(CategoryForm form);
  // Asks first. A main category goes together with those of its sub-categories that nothing uses.
  Deletion Delete(std::int64_t key);

 private:
  [[nodiscard]] int TypeOf(const CategoryForm& form, const std::optional<CategoryRecord>& former);
  // Makes the main categories that the saved sub-category, and those that stood below it when it
  // was a main category itself, need.
  void KeepMainCategories(const CategoryRecord& saved, const std::optional<CategoryRecord>& former);
  [[nodiscard]] bool HasSubCategories(const std::string& name);
  [[nodiscard]] bool Clashes(const std::string& oldName, const std::string& newName);

  clsCorvanta& ledger_;
  Prompts& prompts_;
};

}  // namespace corvanta::inline reference
