#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {
namespace {

template <typename Record, typename Read>
std::vector<Record> ReadAll(Connection& store, const std::string& sql, const Read& read) {
  std::vector<Record> records;
  Recordset rows = store.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) records.push_back(read(rows));
  return records;
}

}  // namespace

std::vector<AccountGroupRecord> clsCorvanta::AccountGroups() {
  return ReadAll<AccountGroupRecord>(
      connection_, "Select * from tblAccountType Order by AccountType, AccountTypeID",
      [](const Recordset& row) {
        return AccountGroupRecord{row.Int("AccountTypeID"), row.Text("AccountType"),
                                  row.Text("Description")};
      });
}

std::vector<BankRecord> clsCorvanta::Banks() {
  return ReadAll<BankRecord>(
      connection_, "Select * from tblBank Order by Bank, BankID", [](const Recordset& row) {
        return BankRecord{row.Int("BankID"),    row.Text("Bank"),      row.Text("Address"),
                          row.Text("Postcode"), row.Text("Telephone"), row.Text("Account"),
                          row.Text("Sortcode"), row.Text("Web"),       row.Text("Description")};
      });
}

std::vector<CategoryRecord> clsCorvanta::Categories() {
  return ReadAll<CategoryRecord>(
      connection_, "Select * from tblCategory Order by Category, SubCategory, CategoryID",
      [](const Recordset& row) {
        return CategoryRecord{row.Int("CategoryID"),   row.Text("Category"),
                              row.Text("SubCategory"), static_cast<int>(row.Int("Type")),
                              row.Double("Budget"),    row.Int("PeriodID"),
                              row.Text("Description")};
      });
}

std::vector<PayeeRecord> clsCorvanta::Payees() {
  return ReadAll<PayeeRecord>(
      connection_, "Select * from tblPayees Where Investment = 0 Order by Payee, PayeeID",
      [](const Recordset& row) {
        return PayeeRecord{row.Int("PayeeID"), row.Text("Payee"), row.Text("Description")};
      });
}

std::vector<PaymentRecord> clsCorvanta::Payments() {
  return ReadAll<PaymentRecord>(
      connection_, "Select * from tblPayments Order by [Payment], PaymentID",
      [](const Recordset& row) {
        return PaymentRecord{row.Int("PaymentID"), row.Text("Payment"), row.Text("Description")};
      });
}

std::vector<CurrencyRecord> clsCorvanta::Currencies() {
  return ReadAll<CurrencyRecord>(
      connection_, "Select * from tblCurrency Order by Description, CurrencyID",
      [](const Recordset& row) {
        return CurrencyRecord{row.Int("CurrencyID"), row.Text("Currency"), row.Text("Description")};
      });
}

std::vector<PeriodRecord> clsCorvanta::Periods() {
  return ReadAll<PeriodRecord>(
      connection_, "Select * from tblPeriods Order by PeriodID", [](const Recordset& row) {
        return PeriodRecord{row.Int("PeriodID"), row.Text("Period"), row.Text("Description")};
      });
}

std::optional<AccountRecord> clsCorvanta::ReadAccount(std::int64_t accountId) {
  const Recordset row = connection_.OpenRecordset("Select * from tblAccounts Where AccountID = " +
                                                  SqlNumber(accountId));
  if (row.Eof()) return std::nullopt;
  return AccountRecord{
      row.Int("AccountID"),     row.Text("Account"),     row.Text("AccountNo"),
      row.Int("AccountTypeID"), row.Int("BankID"),       row.Double("OpeningBalance"),
      row.Int("CurrencyId"),    row.Text("Description"), row.Int("CloseAccount") != 0};
}

}  // namespace corvanta
