#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {

std::int64_t clsCorvanta::SaveRow(const std::string& table, const std::string& keyColumn,
                                  std::int64_t key, std::initializer_list<Field> fields) {
  Recordset row = connection_.OpenRecordset(
      key == 0 ? table : "Select * from " + table + " Where " + keyColumn + " = " + SqlNumber(key));
  if (key == 0) {
    row.AddNew();
  } else if (row.Eof()) {
    return 0;
  }
  for (const Field& field : fields) row.Set(field.column, field.value);
  row.Update();
  return row.Key();
}

std::int64_t clsCorvanta::SaveAccount(AccountRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Account");
  return record.accountId = SaveRow("tblAccounts", "AccountID", record.accountId,
                                    {{"Account", record.account},
                                     {"AccountNo", record.accountNo},
                                     {"AccountTypeID", record.accountTypeId},
                                     {"BankID", record.bankId},
                                     {"OpeningBalance", record.openingBalance},
                                     {"CurrencyId", record.currencyId},
                                     {"Description", record.description},
                                     {"CloseAccount", record.closed ? 1 : 0}});
}

std::int64_t clsCorvanta::SaveAccountGroup(AccountGroupRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Account Group");
  return record.accountTypeId =
             SaveRow("tblAccountType", "AccountTypeID", record.accountTypeId,
                     {{"AccountType", record.accountType}, {"Description", record.description}});
}

std::int64_t clsCorvanta::SaveBank(BankRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Bank");
  return record.bankId = SaveRow("tblBank", "BankID", record.bankId,
                                 {{"Bank", record.bank},
                                  {"Address", record.address},
                                  {"Postcode", record.postcode},
                                  {"Telephone", record.telephone},
                                  {"Account", record.account},
                                  {"Sortcode", record.sortcode},
                                  {"Web", record.web},
                                  {"Description", record.description}});
}

std::int64_t clsCorvanta::SaveCategory(CategoryRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Category");
  return record.categoryId = SaveRow("tblCategory", "CategoryID", record.categoryId,
                                     {{"Category", record.category},
                                      {"SubCategory", record.subCategory},
                                      {"Type", record.type},
                                      {"Budget", record.budget},
                                      {"PeriodId", record.periodId},
                                      {"Description", record.description}});
}

std::int64_t clsCorvanta::SavePayee(PayeeRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Payee");
  if (record.payeeId != 0) {
    return record.payeeId = SaveRow("tblPayees", "PayeeID", record.payeeId,
                                    {{"Payee", record.payee}, {"Description", record.description}});
  }
  return record.payeeId = SaveRow(
             "tblPayees", "PayeeID", 0,
             {{"Payee", record.payee}, {"Description", record.description}, {"Investment", 0}});
}

std::int64_t clsCorvanta::SavePayment(PaymentRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Payment Type");
  return record.paymentId =
             SaveRow("tblPayments", "PaymentID", record.paymentId,
                     {{"Payment", record.payment}, {"Description", record.description}});
}

void clsCorvanta::RenameMainCategory(const std::string& oldName, const std::string& newName,
                                     int type) {
  const UndoLog::Step step = undo_.Begin("Rename Category");
  connection_.Execute("Update tblCategory SET [Type] = " + std::to_string(type) +
                      ",Category = " + SqlText(Trim(newName)) +
                      " Where lcase(Category) = " + SqlText(ToLower(Trim(oldName))));
}

}  // namespace corvanta
