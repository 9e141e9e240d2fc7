#include "ledger/reference/CategoryBook.h"

#include "ledger/SqlName.h"
#include "ledger/reference/ReferenceTables.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {
namespace {

constexpr const char* kMainCategory = " AND (SubCategory = '' OR IsNull(SubCategory))";

CategoryRecord RecordOf(const Recordset& row) {
  return {row.Int("CategoryID"),   row.Text("Category"),
          row.Text("SubCategory"), static_cast<int>(row.Int("Type")),
          row.Double("Budget"),    row.Int("PeriodID"),
          row.Text("Description")};
}

}  // namespace

std::vector<CategoryRecord> CategoryBook::Categories() {
  std::vector<CategoryRecord> categories;
  Recordset rows = core_.store.OpenRecordset(
      "Select * from tblCategory Order by Category, SubCategory, CategoryID");
  for (; !rows.Eof(); rows.MoveNext()) categories.push_back(RecordOf(rows));
  return categories;
}

std::optional<CategoryRecord> CategoryBook::ReadCategory(std::int64_t categoryId) {
  if (categoryId == 0) return std::nullopt;
  const Recordset row = core_.store.OpenRecordset("Select * from tblCategory Where CategoryID = " +
                                                  SqlNumber(categoryId));
  return row.Eof() ? std::nullopt : std::optional(RecordOf(row));
}

std::int64_t CategoryBook::FindCategory(const std::string& category,
                                        const std::string& subCategory) {
  const std::string main =
      "select * from tblCategory where lcase(Category) = " + SqlLowerName(category);
  return core_.ReadKey(Trim(subCategory).empty()
                           ? main + kMainCategory
                           : main + " AND lcase(SubCategory) = " + SqlLowerName(subCategory),
                       "CategoryID");
}

std::int64_t CategoryBook::FindOrCreateCategory(const std::string& category,
                                                const std::string& subCategory, int type) {
  if (Trim(category).empty()) return 0;
  const std::int64_t found = FindCategory(category, subCategory);
  if (found != 0) return found;
  const UndoLog::Step step = core_.undo.Begin("Add Category");
  Transaction all = core_.store.Begin();
  CategoryRecord record;
  record.category = std::string(Trim(category));
  record.subCategory = std::string(Trim(subCategory));
  record.type = type;
  if (!record.subCategory.empty()) {
    const std::int64_t main = FindOrCreateCategory(record.category, {}, type);
    const Recordset row = core_.store.OpenRecordset(
        "Select Category, [Type] from tblCategory Where CategoryID = " + SqlNumber(main));
    record.category = row.Text(0);
    record.type = static_cast<int>(row.Int(1));
  }
  SaveCategory(record);
  all.Commit();
  return record.categoryId;
}

std::int64_t CategoryBook::OtherMainCategory(const std::string& name, std::int64_t categoryId) {
  return core_.OtherKey(
      "Select * from tblCategory Where Category = " + SqlName(name) + kMainCategory, "CategoryID",
      categoryId);
}

std::int64_t CategoryBook::OtherSubCategory(const std::string& category,
                                            const std::string& subCategory,
                                            std::int64_t categoryId) {
  return core_.OtherKey("Select * from tblCategory Where Category = " + SqlName(category) +
                            " AND SubCategory =  " + SqlName(subCategory),
                        "CategoryID", categoryId);
}

std::int64_t CategoryBook::SaveCategory(CategoryRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Category");
  return record.categoryId = core_.SaveRow("tblCategory", "CategoryID", record.categoryId,
                                           {{"Category", record.category},
                                            {"SubCategory", record.subCategory},
                                            {"Type", record.type},
                                            {"Budget", record.budget},
                                            {"PeriodId", record.periodId},
                                            {"Description", record.description}});
}

void CategoryBook::RenameMainCategory(const std::string& oldName, const std::string& newName,
                                      int type) {
  const UndoLog::Step step = core_.undo.Begin("Rename Category");
  core_.store.Execute("Update tblCategory SET [Type] = " + std::to_string(type) + ",Category = " +
                      SqlName(newName) + " Where lcase(Category) = " + SqlLowerName(oldName));
}

bool CategoryBook::DeleteOneCategory(std::int64_t categoryId) {
  return core_.store.Execute("Delete From tblCategory Where CategoryID = " + SqlNumber(categoryId) +
                             LedgerCore::UnlessUsed("CategoryID", categoryId, kEntryTables) +
                             " AND Category NOT IN ('Credit','Debit') ") > 0;
}

CategoryDeletion CategoryBook::DeleteCategory(std::int64_t categoryId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Category");
  Transaction all = core_.store.Begin();
  CategoryDeletion result;
  for (const CategoryRecord& category : WithSubCategories(categoryId)) {
    if (DeleteOneCategory(category.categoryId)) {
      ++result.deleted;
    } else {
      result.kept.push_back(category);
    }
  }
  all.Commit();
  return result;
}

// The row itself last.
std::vector<CategoryRecord> CategoryBook::WithSubCategories(std::int64_t categoryId) {
  std::vector<CategoryRecord> found;
  const auto add = [&](const std::string& sql) {
    Recordset rows = core_.store.OpenRecordset(sql);
    for (; !rows.Eof(); rows.MoveNext()) {
      CategoryRecord record;
      record.categoryId = rows.Int("CategoryID");
      record.category = rows.Text("Category");
      record.subCategory = rows.Text("SubCategory");
      found.push_back(std::move(record));
    }
  };
  add("Select CategoryID, Category, SubCategory from tblCategory Where CategoryID = " +
      SqlNumber(categoryId));
  if (found.empty() || !found[0].subCategory.empty()) return found;
  const CategoryRecord main = found[0];
  found.clear();
  add("Select CategoryID, Category, SubCategory from tblCategory WHERE (Category = " +
      SqlText(main.category) + ") AND ((NOT IsNull(SubCategory)) AND Len(SubCategory) > 0)");
  found.push_back(main);
  return found;
}

void CategoryBook::MergeCategories(std::int64_t sourceId, std::int64_t targetId) {
  const UndoLog::Step step = core_.undo.Begin("Merge Categories");
  core_.Merge("CategoryID", sourceId, targetId);
}

}  // namespace corvanta::inline ledger
