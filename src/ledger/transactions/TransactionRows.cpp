#include "ledger/transactions/TransactionRows.h"

#include "ledger/Money.h"
#include "ledger/transactions/AttachedFiles.h"
#include "ledger/transactions/RowLinks.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {

std::optional<RowLinks> TransactionRows::ReadTwin(std::int64_t twin, std::int64_t key) {
  if (twin == 0 || twin == key) return std::nullopt;
  std::optional<RowLinks> row = ReadLinks(core_.store, twin);
  if (row && row->allocatedItem != 0) row.reset();
  return row;
}

std::int64_t TransactionRows::WriteRow(const TransactionRecord& record) {
  const bool isNew = record.transactionId == 0;
  Recordset row =
      core_.store.OpenRecordset(isNew ? "tblTransactions"
                                      : "Select * from tblTransactions Where TransactionID = " +
                                            SqlNumber(record.transactionId));
  if (isNew) {
    row.AddNew();
    row.Set("AllocatedItem", record.allocatedItem);
  }
  row.Set("Date", record.date);
  row.Set("Amount", record.amount);
  row.Set("Description", record.description);
  row.Set("Reference", record.reference);
  row.Set("BankChk", record.status.bankChk);
  row.Set("BankRec", record.status.bankRec);
  row.Set("AccountID", record.accountId);
  row.Set("CategoryId", record.categoryId);
  row.Set("PaymentID", record.paymentId);
  row.Set("PayeeID", record.payeeId);
  row.Set("Action", record.action);
  row.Set("TransferID", record.transferId);
  if (record.scheduleId != 0) {
    row.Set("BankSch", record.scheduleId);
    row.Set("ScheduleDate", record.scheduleDate ? Value(*record.scheduleDate) : Value());
  }
  row.Update();
  return row.Key();
}

void TransactionRows::RepairTransfer(std::int64_t key, std::int64_t twin) {
  const std::string own = SqlNumber(key);
  const std::string other = SqlNumber(twin);
  if (twin == 0) {
    core_.store.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + own);
    return;
  }
  // What either half belonged to before becomes an ordinary row.
  core_.store.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + own +
                      " AND TransactionID <> " + other);
  core_.store.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + other +
                      " AND TransactionID <> " + own);
  core_.store.Execute("UPDATE tblTransactions SET TransferID = " + own +
                      " WHERE TransactionID = " + other);
  DeleteRows("AllocatedItem = " + own + " OR AllocatedItem = " + other);
}

bool TransactionRows::SumLines(std::int64_t parentId) {
  const Value sum = core_.store.QueryValue(
      "Select SUM(Amount) as AAmount from tblTransactions Where AllocatedItem = " +
      SqlNumber(parentId));
  if (sum.IsNull()) return false;
  core_.store.Execute(
      "UPDATE tblTransactions SET [Amount] = " + SqlNumber(RoundMoney(sum.Double())) +
      " WHERE TransactionId = " + SqlNumber(parentId));
  return true;
}

void TransactionRows::LinesFollow(const TransactionRecord& parent) {
  const std::string lines = " WHERE AllocatedItem = " + SqlNumber(parent.transactionId);
  core_.store.Execute("UPDATE tblTransactions SET [Date] = " + SqlDate(parent.date) +
                      ", BankChk = " + std::to_string(parent.status.bankChk) +
                      ", BankRec = " + std::to_string(parent.status.bankRec) + lines);
  core_.store.Execute("UPDATE tblTransactions SET AccountID = " + SqlNumber(parent.accountId) +
                      lines);
}

void TransactionRows::FitAccount(std::int64_t transactionId, std::int64_t accountId) {
  const auto fit = [this](std::int64_t row, PartsInCurrency& parts) {
    const std::string where = " Where TransactionID = " + SqlNumber(row);
    const double amount =
        core_.store.QueryValue("Select [Amount] from tblTransactions" + where).Double();
    const double fitting = parts.Next(amount);
    if (fitting == amount) return;
    core_.store.Execute("UPDATE tblTransactions SET [Amount] = " + SqlNumber(fitting) + where);
  };
  PartsInCurrency whole = core_.amounts.PartsIn(accountId);
  PartsInCurrency parts = whole;
  fit(transactionId, whole);
  for (const std::int64_t line :
       ReadKeys(core_.store, "Select TransactionID from tblTransactions Where AllocatedItem = " +
                                 SqlNumber(transactionId) + " Order by TransactionID")) {
    fit(line, parts);
  }
  SumLines(transactionId);
}

void TransactionRows::DeleteWhole(std::int64_t transactionId) {
  const std::string key = SqlNumber(transactionId);
  DeleteRows("AllocatedItem  = " + key);
  DeleteRows("TransactionID = " + key);
  core_.store.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + key);
}

void TransactionRows::DeleteRows(const std::string& condition) {
  const std::string rows =
      " IN (Select TransactionID from tblTransactions Where " + condition + ")";
  AttachedFiles(core_).DeleteRows("TransactionId" + rows);
  core_.store.Execute("Delete from tblKeywordLink Where TransactionId" + rows);
  core_.store.Execute("Delete From tblTransactions Where " + condition);
}

}  // namespace corvanta::inline ledger
