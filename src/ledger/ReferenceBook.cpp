#include "ledger/ReferenceBook.h"

#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta {
namespace {

template <typename Record, typename Read>
std::vector<Record> ReadAll(Connection& store, const std::string& sql, const Read& read) {
  std::vector<Record> records;
  Recordset rows = store.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) records.push_back(read(rows));
  return records;
}

std::string Lowered(const std::string& name) {
  return SqlText(ToLower(Trim(name)));
}
std::string Typed(const std::string& name) {
  return SqlText(Trim(name));
}

constexpr const char* kMainCategory = " AND (SubCategory = '' OR IsNull(SubCategory))";

}  // namespace

std::vector<AccountGroupRecord> ReferenceBook::AccountGroups() {
  return ReadAll<AccountGroupRecord>(
      core_.store, "Select * from tblAccountType Order by AccountType, AccountTypeID",
      [](const Recordset& row) {
        return AccountGroupRecord{row.Int("AccountTypeID"), row.Text("AccountType"),
                                  row.Text("Description")};
      });
}

std::vector<BankRecord> ReferenceBook::Banks() {
  return ReadAll<BankRecord>(
      core_.store, "Select * from tblBank Order by Bank, BankID", [](const Recordset& row) {
        return BankRecord{row.Int("BankID"),    row.Text("Bank"),      row.Text("Address"),
                          row.Text("Postcode"), row.Text("Telephone"), row.Text("Account"),
                          row.Text("Sortcode"), row.Text("Web"),       row.Text("Description")};
      });
}

std::vector<PayeeRecord> ReferenceBook::Payees() {
  return ReadAll<PayeeRecord>(
      core_.store, "Select * from tblPayees Where Investment = 0 Order by Payee, PayeeID",
      [](const Recordset& row) {
        return PayeeRecord{row.Int("PayeeID"), row.Text("Payee"), row.Text("Description")};
      });
}

std::vector<PaymentRecord> ReferenceBook::Payments() {
  return ReadAll<PaymentRecord>(
      core_.store, "Select * from tblPayments Order by [Payment], PaymentID",
      [](const Recordset& row) {
        return PaymentRecord{row.Int("PaymentID"), row.Text("Payment"), row.Text("Description")};
      });
}

std::vector<CurrencyRecord> ReferenceBook::Currencies() {
  return ReadAll<CurrencyRecord>(
      core_.store, "Select * from tblCurrency Order by Description, CurrencyID",
      [](const Recordset& row) {
        return CurrencyRecord{row.Int("CurrencyID"), row.Text("Currency"), row.Text("Description")};
      });
}

std::vector<PeriodRecord> ReferenceBook::Periods() {
  return ReadAll<PeriodRecord>(
      core_.store, "Select * from tblPeriods Order by PeriodID", [](const Recordset& row) {
        return PeriodRecord{row.Int("PeriodID"), row.Text("Period"), row.Text("Description")};
      });
}

std::int64_t ReferenceBook::FindOrCreateAccountGroup(const std::string& name) {
  return core_.FindOrInsert(
      {"tblAccountType", "AccountTypeID",
       "Select * From tblAccountType Where lcase(AccountType) =" + Lowered(name),
       "INSERT INTO tblAccountType (AccountType) VALUES(" + Typed(name) + ")", "Add Account Group"},
      name);
}

std::int64_t ReferenceBook::FindOrCreateBank(const std::string& name) {
  return core_.FindOrInsert(
      {"tblBank", "BankID", "Select * From tblBank Where lcase(Bank) =" + Lowered(name),
       "INSERT INTO tblBank (Bank) VALUES(" + Typed(name) + ")", "Add Bank"},
      name);
}

// An investment of that name is none: it stands in the same table.
std::int64_t ReferenceBook::FindOrCreatePayee(const std::string& name) {
  return core_.FindOrInsert(
      {"tblPayees", "PayeeID",
       "Select * From tblPayees Where lcase(Payee) =" + Lowered(name) + " AND Investment = 0",
       "INSERT INTO tblPayees (Payee, Investment) VALUES(" + Typed(name) + ",0)", "Add Payee"},
      name);
}

std::int64_t ReferenceBook::FindOrCreatePayment(const std::string& name) {
  return core_.FindOrInsert(
      {"tblPayments", "PaymentID",
       "select * from tblPayments where lcase(Payment) = " + Lowered(name),
       "INSERT INTO tblPayments (Payment) VALUES(" + Typed(name) + ")", "Add Payment Type"},
      name);
}

std::int64_t ReferenceBook::OtherAccountGroup(const std::string& name, std::int64_t accountTypeId) {
  return core_.OtherKey("Select * from tblAccountType Where AccountType = " + Typed(name),
                        "AccountTypeID", accountTypeId);
}

std::int64_t ReferenceBook::OtherBank(const std::string& name, std::int64_t bankId) {
  return core_.OtherKey("Select * from tblBank Where Bank = " + Typed(name), "BankID", bankId);
}

std::int64_t ReferenceBook::OtherPayee(const std::string& name, std::int64_t payeeId) {
  return core_.OtherKey("Select * from tblPayees Where Investment = 0 AND Payee = " + Typed(name),
                        "PayeeID", payeeId);
}

std::int64_t ReferenceBook::OtherPayment(const std::string& name, std::int64_t paymentId) {
  return core_.OtherKey("Select * from tblPayments Where [Payment] = " + Typed(name), "PaymentID",
                        paymentId);
}

std::int64_t ReferenceBook::OtherKeyword(const std::string& name, std::int64_t keywordId) {
  return core_.OtherKey("Select * from tblKeywords Where [Keyword] = " + Typed(name), "KeywordID",
                        keywordId);
}

std::optional<TextProblem> ReferenceBook::TooLong(std::string_view table,
                                                  std::initializer_list<ColumnText> texts) {
  const TableDef* definition = core_.store.Table(table);
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

std::int64_t ReferenceBook::SaveAccountGroup(AccountGroupRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Account Group");
  return record.accountTypeId = core_.SaveRow(
             "tblAccountType", "AccountTypeID", record.accountTypeId,
             {{"AccountType", record.accountType}, {"Description", record.description}});
}

std::int64_t ReferenceBook::SaveBank(BankRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Bank");
  return record.bankId = core_.SaveRow("tblBank", "BankID", record.bankId,
                                       {{"Bank", record.bank},
                                        {"Address", record.address},
                                        {"Postcode", record.postcode},
                                        {"Telephone", record.telephone},
                                        {"Account", record.account},
                                        {"Sortcode", record.sortcode},
                                        {"Web", record.web},
                                        {"Description", record.description}});
}

std::int64_t ReferenceBook::SavePayee(PayeeRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Payee");
  if (record.payeeId != 0) {
    return record.payeeId =
               core_.SaveRow("tblPayees", "PayeeID", record.payeeId,
                             {{"Payee", record.payee}, {"Description", record.description}});
  }
  return record.payeeId = core_.SaveRow(
             "tblPayees", "PayeeID", 0,
             {{"Payee", record.payee}, {"Description", record.description}, {"Investment", 0}});
}

std::int64_t ReferenceBook::SavePayment(PaymentRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Payment Type");
  return record.paymentId =
             core_.SaveRow("tblPayments", "PaymentID", record.paymentId,
                           {{"Payment", record.payment}, {"Description", record.description}});
}

bool ReferenceBook::DeleteBank(std::int64_t bankId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Bank");
  const std::string key = SqlNumber(bankId);
  return core_.store.Execute(
             "Delete From tblBank Where BankID = " + key +
             " AND BankID NOT IN (Select BankID from tblAccounts Where BankID = " + key + ")") > 0;
}

bool ReferenceBook::DeleteAccountGroup(std::int64_t accountTypeId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Account Group");
  return core_.store.Execute(
             "Delete From tblAccountType Where AccountTypeID = " + SqlNumber(accountTypeId) +
             " AND AccountTypeID NOT IN (Select AccountTypeID from tblAccounts)") > 0;
}

bool ReferenceBook::DeletePayment(std::int64_t paymentId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Payment Type");
  return core_.store.Execute("Delete From tblPayments Where PaymentID = " + SqlNumber(paymentId) +
                             " AND PaymentID NOT IN (Select PaymentID from tblTransactions)"
                             " AND PaymentID NOT IN (Select PaymentID from tblSchedule)"
                             " AND Payment <> 'Import' ") > 0;
}

bool ReferenceBook::DeletePayee(std::int64_t payeeId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Payee");
  return core_.store.Execute("Delete From tblPayees Where PayeeID = " + SqlNumber(payeeId) +
                             " AND PayeeID NOT IN (Select PayeeID from tblTransactions)"
                             " AND PayeeID NOT IN (Select PayeeID from tblSchedule)"
                             " AND PayeeID NOT IN (Select PayeeID from tblHistory)") > 0;
}

void ReferenceBook::MergePayees(std::int64_t sourceId, std::int64_t targetId) {
  const UndoLog::Step step = core_.undo.Begin("Merge Payees");
  core_.Merge("PayeeID", sourceId, targetId);
}

}  // namespace corvanta
