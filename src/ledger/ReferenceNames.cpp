// Finding and making the rows behind the names that a person types.
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {
namespace {

std::string Lowered(const std::string& name) {
  return SqlText(ToLower(Trim(name)));
}
std::string Typed(const std::string& name) {
  return SqlText(Trim(name));
}

constexpr const char* kMainCategory = " AND (SubCategory = '' OR IsNull(SubCategory))";

}  // namespace

std::int64_t clsCorvanta::FindOrInsert(const NamedRow& row, const std::string& name) {
  if (Trim(name).empty()) return 0;
  const std::int64_t found = ReadKey(row.find, row.keyColumn);
  if (found != 0) return found;
  const UndoLog::Step step = undo_.Begin(row.step);
  Transaction all = connection_.Begin();
  connection_.Execute(row.insert);
  const std::string key = row.keyColumn;
  const std::int64_t made =
      ReadKey("Select Max(" + key + ") as " + key + " from " + row.table, row.keyColumn);
  all.Commit();
  return made;
}

std::int64_t clsCorvanta::FindOrCreateAccountGroup(const std::string& name) {
  return FindOrInsert(
      {"tblAccountType", "AccountTypeID",
       "Select * From tblAccountType Where lcase(AccountType) =" + Lowered(name),
       "INSERT INTO tblAccountType (AccountType) VALUES(" + Typed(name) + ")", "Add Account Group"},
      name);
}

std::int64_t clsCorvanta::FindOrCreateBank(const std::string& name) {
  return FindOrInsert(
      {"tblBank", "BankID", "Select * From tblBank Where lcase(Bank) =" + Lowered(name),
       "INSERT INTO tblBank (Bank) VALUES(" + Typed(name) + ")", "Add Bank"},
      name);
}

// An investment of that name is none: it stands in the same table.
std::int64_t clsCorvanta::FindOrCreatePayee(const std::string& name) {
  return FindOrInsert(
      {"tblPayees", "PayeeID",
       "Select * From tblPayees Where lcase(Payee) =" + Lowered(name) + " AND Investment = 0",
       "INSERT INTO tblPayees (Payee, Investment) VALUES(" + Typed(name) + ",0)", "Add Payee"},
      name);
}

std::int64_t clsCorvanta::FindOrCreatePayment(const std::string& name) {
  return FindOrInsert(
      {"tblPayments", "PaymentID",
       "select * from tblPayments where lcase(Payment) = " + Lowered(name),
       "INSERT INTO tblPayments (Payment) VALUES(" + Typed(name) + ")", "Add Payment Type"},
      name);
}

std::int64_t clsCorvanta::FindCategory(const std::string& category,
                                       const std::string& subCategory) {
  const std::string main = "select * from tblCategory where lcase(Category) = " + Lowered(category);
  return ReadKey(Trim(subCategory).empty()
                     ? main + kMainCategory
                     : main + " AND lcase(SubCategory) = " + Lowered(subCategory),
                 "CategoryID");
}

std::int64_t clsCorvanta::FindOrCreateCategory(const std::string& category,
                                               const std::string& subCategory, int type) {
  if (Trim(category).empty()) return 0;
  const std::int64_t found = FindCategory(category, subCategory);
  if (found != 0) return found;
  const UndoLog::Step step = undo_.Begin("Add Category");
  Transaction all = connection_.Begin();
  CategoryRecord record;
  record.category = std::string(Trim(category));
  record.subCategory = std::string(Trim(subCategory));
  record.type = type;
  if (!record.subCategory.empty()) {
    const std::int64_t main = FindOrCreateCategory(record.category, {}, type);
    const Recordset row = connection_.OpenRecordset(
        "Select Category, [Type] from tblCategory Where CategoryID = " + SqlNumber(main));
    record.category = row.Text(0);
    record.type = static_cast<int>(row.Int(1));
  }
  SaveCategory(record);
  all.Commit();
  return record.categoryId;
}

std::int64_t clsCorvanta::FindOrCreateAccount(const AccountRecord& account) {
  AccountRecord record = account;
  record.account = std::string(Trim(account.account));
  if (record.account.empty()) return 0;
  record.accountId = OtherAccount(record.account, 0);
  return record.accountId != 0 ? record.accountId : SaveAccount(record);
}

std::int64_t clsCorvanta::OtherKey(const std::string& sql, std::string_view keyColumn,
                                   std::int64_t key) {
  Recordset rows = connection_.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) {
    if (rows.Int(keyColumn) != key) return rows.Int(keyColumn);
  }
  return 0;
}

std::int64_t clsCorvanta::OtherAccount(const std::string& name, std::int64_t accountId) {
  return OtherKey("Select * from tblAccounts Where Account = " + Typed(name), "AccountID",
                  accountId);
}

std::int64_t clsCorvanta::OtherAccountGroup(const std::string& name, std::int64_t accountTypeId) {
  return OtherKey("Select * from tblAccountType Where AccountType = " + Typed(name),
                  "AccountTypeID", accountTypeId);
}

std::int64_t clsCorvanta::OtherBank(const std::string& name, std::int64_t bankId) {
  return OtherKey("Select * from tblBank Where Bank = " + Typed(name), "BankID", bankId);
}

std::int64_t clsCorvanta::OtherPayee(const std::string& name, std::int64_t payeeId) {
  return OtherKey("Select * from tblPayees Where Investment = 0 AND Payee = " + Typed(name),
                  "PayeeID", payeeId);
}

std::int64_t clsCorvanta::OtherPayment(const std::string& name, std::int64_t paymentId) {
  return OtherKey("Select * from tblPayments Where [Payment] = " + Typed(name), "PaymentID",
                  paymentId);
}

std::int64_t clsCorvanta::OtherKeyword(const std::string& name, std::int64_t keywordId) {
  return OtherKey("Select * from tblKeywords Where [Keyword] = " + Typed(name), "KeywordID",
                  keywordId);
}

std::int64_t clsCorvanta::OtherMainCategory(const std::string& name, std::int64_t categoryId) {
  return OtherKey("Select * from tblCategory Where Category = " + Typed(name) + kMainCategory,
                  "CategoryID", categoryId);
}

std::int64_t clsCorvanta::OtherSubCategory(const std::string& category,
                                           const std::string& subCategory,
                                           std::int64_t categoryId) {
  return OtherKey("Select * from tblCategory Where Category = " + Typed(category) +
                      " AND SubCategory =  " + Typed(subCategory),
                  "CategoryID", categoryId);
}

std::optional<TextProblem> clsCorvanta::TooLong(std::string_view table,
                                                std::initializer_list<ColumnText> texts) {
  const TableDef* definition = connection_.Table(table);
  if (definition == nullptr) return std::nullopt;
  for (const ColumnText& text : texts) {
    const ColumnDef* column = definition->Column(text.column);
    if (column == nullptr || column->kind != ColumnKind::Text) continue;
    if (TextLength(text.text) <= static_cast<std::size_t>(column->size)) continue;
    return TextProblem{column->name, "The text is too long: " + column->name + " holds at most " +
                                         std::to_string(column->size) + " characters."};
  }
  return std::nullopt;
}

}  // namespace corvanta
