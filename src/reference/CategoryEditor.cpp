#include "reference/CategoryEditor.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/CategoryPath.h"
#include "platform/ArithmeticText.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline reference {
namespace {

constexpr int kExpense = -1;

std::optional<Warning> CheckBudget(const CategoryForm& form) {
  if (!form.budget || !(std::abs(*form.budget) <= kLargestAmount)) {
    return Warning{kSaveWarning, "You need to enter a valid Budget", "txtBudget"};
  }
  if (*form.budget == 0) return std::nullopt;
  if (form.type == 0) {
    return Warning{kSaveWarning, "You need to enter a Budget Type, when setting a budget",
                   "cmbType"};
  }
  if (form.periodId == 0) {
    return Warning{kSaveWarning, "You need to select a Budget Period, when setting a budget",
                   "cmbPeriod"};
  }
  return std::nullopt;
}

// A new category may be typed as lists show it.
void ApplyPath(clsCorvanta& ledger, CategoryForm& form) {
  if (form.categoryId != 0 || !Trim(form.subCategory).empty()) return;
  CategoryName name = CategoryOf(ledger, form.category, form.subCategory);
  form.category = std::move(name.category);
  form.subCategory = std::move(name.subCategory);
}

}  // namespace

std::string FullName(const CategoryRecord& category) {
  return CategoryPath(category.category, category.subCategory);
}

std::optional<CategoryForm> CategoryEditor::Load(std::int64_t key) {
  const auto row = ledger_.Categories().ReadCategory(key);
  if (!row) return std::nullopt;
  return CategoryForm{row->categoryId, row->category, row->subCategory, row->type,
                      row->budget,     row->periodId, row->description};
}

std::optional<Warning> CategoryEditor::Check(CategoryForm form) {
  ApplyPath(ledger_, form);
  if (auto warning = Missing(form.category, "You need to enter a Category", "cmbCategory"))
    return warning;
  if (auto warning = NameTooLong(form.category, "Category must be less than 100 characters long",
                                 "cmbCategory"))
    return warning;
  if (auto warning =
          NameTooLong(form.subCategory, "Sub Category must be less than 100 characters long",
                      "txtSubCategory")) {
    return warning;
  }
  if (auto warning = CheckBudget(form)) return warning;
  if (auto warning = TextTooLong(ledger_, "tblCategory",
                                 {{"Description", form.description, "txtDescription"}})) {
    return warning;
  }
  const auto former = ledger_.Categories().ReadCategory(form.categoryId);
  const std::string name = CategoryPath(form.category, std::string(Trim(form.subCategory)));
  for (const char* fixed : {"Credit", "Debit"}) {
    if (!former || !former->subCategory.empty()) break;
    if (auto warning = FixedName(fixed, former->category, name, "Category", "cmbCategory")) {
      return warning;
    }
  }
  if (Trim(form.subCategory).empty()) {
    return Duplicate(ledger_.Categories().OtherMainCategory(form.category, form.categoryId) != 0,
                     "Category already exists", "cmbCategory");
  }
  return Duplicate(
      ledger_.Categories().OtherSubCategory(form.category, form.subCategory, form.categoryId) != 0,
      "Sub category already exists", "txtSubCategory");
}

int CategoryEditor::TypeOf(const CategoryForm& form, const std::optional<CategoryRecord>& former) {
  if (form.type != 0) return form.type;
  if (former) return former->type;
  const auto main =
      ledger_.Categories().ReadCategory(ledger_.Categories().FindCategory(form.category, {}));
  return main ? main->type : kExpense;
}

// Whether a sub-category would meet another one of its name.
bool CategoryEditor::Clashes(const std::string& oldName, const std::string& newName) {
  if (EqualFolded(oldName, newName)) return false;
  for (const CategoryRecord& row : ledger_.Categories().Categories()) {
    if (row.subCategory.empty() || !EqualFolded(row.category, oldName)) continue;
    if (ledger_.Categories().OtherSubCategory(newName, row.subCategory, row.categoryId) != 0)
      return true;
  }
  return false;
}

bool CategoryEditor::HasSubCategories(const std::string& name) {
  for (const CategoryRecord& row : ledger_.Categories().Categories()) {
    if (!row.subCategory.empty() && EqualFolded(row.category, name)) return true;
  }
  return false;
}

std::int64_t CategoryEditor::Save(CategoryForm form) {
  TrimText(form.category);
  TrimText(form.subCategory);
  TrimText(form.description);
  ApplyPath(ledger_, form);
  const auto former = ledger_.Categories().ReadCategory(form.categoryId);
  const bool isMain = form.subCategory.empty();
  const auto main =
      ledger_.Categories().ReadCategory(ledger_.Categories().FindCategory(form.category, {}));
  // A sub-category stands under its main category in that one's spelling.
  if (!isMain && main && main->categoryId != form.categoryId) form.category = main->category;
  const bool isRenamed = former && former->category != form.category;
  const int type = TypeOf(form, former);
  const bool takesAlong =
      isRenamed && isMain && former->subCategory.empty() &&
      prompts_.Ask("Amend Category",
                   "Do you want to amend the name for this category and all sub categories");
  if (takesAlong && Clashes(former->category, form.category)) {
    prompts_.Tell("Duplicate Record", "Sub category already exists");
    return 0;
  }
  const UndoLog::Step step = ledger_.Undo().Begin(former ? "Edit Category" : "Add Category");
  Transaction all = ledger_.Store().Begin();
  if (takesAlong) ledger_.Categories().RenameMainCategory(former->category, form.category, type);
  CategoryRecord record{form.categoryId,         form.category, form.subCategory, type,
                        form.budget.value_or(0), form.periodId, form.description};
  const std::int64_t key = ledger_.Categories().SaveCategory(record);
  if (!isMain) KeepMainCategories(record, former);
  all.Commit();
  return key;
}

void CategoryEditor::KeepMainCategories(const CategoryRecord& saved,
                                        const std::optional<CategoryRecord>& former) {
  const bool isRenamed = former && former->category != saved.category;
  // Behind the row, for it may have been the main category itself until now.
  if (!former || isRenamed || former->subCategory.empty()) {
    ledger_.Categories().FindOrCreateCategory(saved.category, {}, saved.type);
  }
  // Sub-categories of a main category that became one itself keep a main category of their own.
  if (former && former->subCategory.empty() && HasSubCategories(former->category)) {
    ledger_.Categories().FindOrCreateCategory(former->category, {}, former->type);
  }
}

Deletion CategoryEditor::Delete(std::int64_t key) {
  if (!AskDelete(prompts_)) return {};
  const CategoryDeletion done = ledger_.Categories().DeleteCategory(key);
  Deletion deletion;
  deletion.isChanged = done.deleted > 0;
  deletion.isGone = deletion.isChanged;
  for (const CategoryRecord& row : done.kept) {
    if (row.categoryId == key) deletion.isGone = false;
    deletion.kept.push_back(FullName(row));
  }
  return deletion;
}

}  // namespace corvanta::inline reference
