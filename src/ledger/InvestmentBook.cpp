#include "ledger/InvestmentBook.h"

#include "ledger/CategoryBook.h"
#include "ledger/ReferenceBook.h"
#include "ledger/RowLinks.h"
#include "ledger/TransactionRows.h"
#include "ledger/TransactionStatus.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {
namespace {

bool LowersCash(InvestAction action) {
  return action == InvestAction::Buy || action == InvestAction::RemoveShares;
}

// Where there is no source at all the investment has none.
std::int64_t FirstSource(Connection& store) {
  return store
      .QueryValue(
          "Select top 1 DataID from tblStockData WHERE UCASE([Type])='STOCK' Order by DataID")
      .Int();
}

}  // namespace

std::int64_t InvestmentBook::FindOrCreateInvestment(const std::string& name,
                                                    const std::string& symbol,
                                                    std::int64_t currencyId) {
  const std::string payee(Trim(name));
  const std::string ticker(Trim(symbol));
  // A column that was never written holds no symbol either.
  const std::string noSymbol = ticker.empty() ? " OR IsNull([Symbol])" : "";
  const std::string currency = SqlNumber(currencyId);
  return core_.FindOrInsert(
      {"tblPayees", "PayeeID",
       "Select * From tblPayees Where lcase(Payee) =" + SqlText(ToLower(payee)) +
           " AND (lcase([Symbol]) =" + SqlText(ToLower(ticker)) + noSymbol + ") AND Investment = 1",
       "INSERT INTO tblPayees (Payee, [Symbol], CurrencyID, InvestCurrencyID, Description,"
       "DataId, Conversion, Investment) VALUES(" +
           SqlText(payee) + "," + SqlText(ticker) + "," + currency + "," + currency + ",''," +
           SqlNumber(FirstSource(core_.store)) + ",1,1)",
       "Add Investment"},
      name);
}

std::int64_t InvestmentBook::SaveInvestmentTransaction(InvestmentTransaction& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Investment Transaction");
  Transaction all = core_.store.Begin();
  const bool isNew = record.transactionId == 0;
  if (!isNew) {
    const std::optional<RowLinks> old = ReadLinks(core_.store, record.transactionId);
    if (!old || old->allocatedItem != 0) return 0;
    core_.closed.RequireOpenHalves(*old);
    // Lines of an ordinary row that becomes a holding's would add up to nothing.
    TransactionRows(core_).DeleteRows("AllocatedItem = " + SqlNumber(record.transactionId));
    TransactionRows(core_).RepairTransfer(record.transactionId, 0);
  }
  core_.closed.RequireOpen(record.accountId);
  const bool takesCash = LowersCash(record.action);
  const std::int64_t category = takesCash
                                    ? ledger_.Categories().FindOrCreateCategory("Debit", {}, -1)
                                    : ledger_.Categories().FindOrCreateCategory("Credit", {}, 1);
  const std::int64_t payment = ledger_.References().FindOrCreatePayment("Import");
  const StatusFlags flags = FlagsOf(record.status);
  Recordset row =
      core_.store.OpenRecordset(isNew ? "tblTransactions"
                                      : "Select * from tblTransactions Where TransactionID = " +
                                            SqlNumber(record.transactionId));
  if (isNew) row.AddNew();
  row.Set("Date", record.date);
  row.Set("AccountID", record.accountId);
  row.Set("PayeeID", record.payeeId);
  row.Set("CategoryId", category);
  row.Set("PaymentID", payment);
  row.Set("Action", static_cast<std::int64_t>(record.action));
  row.Set("TransferID", 0);
  row.Set("Dividend", record.dividend);
  row.Set("Shares", record.shares);
  row.Set("Price", record.price);
  row.Set("Commission", record.commission);
  row.Set("Amount", takesCash ? 0 - record.total : record.total);
  row.Set("Description", record.description);
  row.Set("BankChk", flags.bankChk);
  row.Set("BankRec", flags.bankRec);
  row.Update();
  record.transactionId = row.Key();
  all.Commit();
  return record.transactionId;
}

}  // namespace corvanta::inline ledger
