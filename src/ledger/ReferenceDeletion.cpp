// Deleting and merging reference rows. The statements carry their guards: what is in use stays.
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {

bool clsCorvanta::DeleteBank(std::int64_t bankId) {
  const UndoLog::Step step = undo_.Begin("Delete Bank");
  const std::string key = SqlNumber(bankId);
  return connection_.Execute(
             "Delete From tblBank Where BankID = " + key +
             " AND BankID NOT IN (Select BankID from tblAccounts Where BankID = " + key + ")") > 0;
}

bool clsCorvanta::DeleteAccountGroup(std::int64_t accountTypeId) {
  const UndoLog::Step step = undo_.Begin("Delete Account Group");
  return connection_.Execute(
             "Delete From tblAccountType Where AccountTypeID = " + SqlNumber(accountTypeId) +
             " AND AccountTypeID NOT IN (Select AccountTypeID from tblAccounts)") > 0;
}

bool clsCorvanta::DeletePayment(std::int64_t paymentId) {
  const UndoLog::Step step = undo_.Begin("Delete Payment Type");
  return connection_.Execute("Delete From tblPayments Where PaymentID = " + SqlNumber(paymentId) +
                             " AND PaymentID NOT IN (Select PaymentID from tblTransactions)"
                             " AND PaymentID NOT IN (Select PaymentID from tblSchedule)"
                             " AND Payment <> 'Import' ") > 0;
}

bool clsCorvanta::DeletePayee(std::int64_t payeeId) {
  const UndoLog::Step step = undo_.Begin("Delete Payee");
  return connection_.Execute("Delete From tblPayees Where PayeeID = " + SqlNumber(payeeId) +
                             " AND PayeeID NOT IN (Select PayeeID from tblTransactions)"
                             " AND PayeeID NOT IN (Select PayeeID from tblSchedule)"
                             " AND PayeeID NOT IN (Select PayeeID from tblHistory)") > 0;
}

bool clsCorvanta::DeleteOneCategory(std::int64_t categoryId) {
  return connection_.Execute("Delete From tblCategory Where CategoryID = " + SqlNumber(categoryId) +
                             " AND CategoryID NOT IN (Select CategoryID from tblTransactions)"
                             " AND CategoryID NOT IN (Select CategoryID from tblSchedule)"
                             " AND Category NOT IN ('Credit','Debit') ") > 0;
}

CategoryDeletion clsCorvanta::DeleteCategory(std::int64_t categoryId) {
  const UndoLog::Step step = undo_.Begin("Delete Category");
  Transaction all = connection_.Begin();
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
std::vector<CategoryRecord> clsCorvanta::WithSubCategories(std::int64_t categoryId) {
  std::vector<CategoryRecord> found;
  const auto add = [&](const std::string& sql) {
    Recordset rows = connection_.OpenRecordset(sql);
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

void clsCorvanta::MergeCategories(std::int64_t sourceId, std::int64_t targetId) {
  const UndoLog::Step step = undo_.Begin("Merge Categories");
  Merge("CategoryID", sourceId, targetId);
}

void clsCorvanta::MergePayees(std::int64_t sourceId, std::int64_t targetId) {
  const UndoLog::Step step = undo_.Begin("Merge Payees");
  Merge("PayeeID", sourceId, targetId);
}

void clsCorvanta::Merge(const std::string& column, std::int64_t sourceId, std::int64_t targetId) {
  if (sourceId == targetId || sourceId == 0 || targetId == 0) return;
  Transaction all = connection_.Begin();
  // Rows that point to nothing would drop out of every list and balance.
  const std::string target = column == "CategoryID" ? "tblCategory" : "tblPayees";
  const Value found = connection_.QueryValue("Select " + column + " from " + target + " WHERE " +
                                             column + " = " + SqlNumber(targetId));
  if (found.IsNull()) return;
  for (const std::string table : {"tblTransactions", "tblSchedule"}) {
    connection_.Execute("update " + table + " set " + column + " = " + SqlNumber(targetId) +
                        " Where " + column + " = " + SqlNumber(sourceId));
  }
  all.Commit();
}

}  // namespace corvanta
