// Writing transactions, and keeping transfers and splits in one piece.
#include "ledger/Money.h"
#include "ledger/RowLinks.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {

std::int64_t clsCorvanta::SaveTransaction(TransactionRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Transaction");
  Transaction all = connection_.Begin();
  if (record.transactionId != 0) {
    const std::optional<RowLinks> old = ReadLinks(connection_, record.transactionId);
    if (!old) return 0;
    record.allocatedItem = old->allocatedItem;
  }
  if (record.allocatedItem != 0 && !TakeFromParent(record)) return 0;
  if (!CanBeTwin(record.transferId, record.transactionId)) record.transferId = 0;
  record.transactionId = WriteRow(record);
  if (record.allocatedItem != 0) {
    SumLines(record.allocatedItem);
  } else {
    RepairTransfer(record.transactionId, record.transferId);
    if (SumLines(record.transactionId)) LinesFollow(record);
  }
  all.Commit();
  return record.transactionId;
}

void clsCorvanta::SaveTransfer(TransactionRecord& from, TransactionRecord& to) {
  const UndoLog::Step step = undo_.Begin("Save Transfer");
  Transaction all = connection_.Begin();
  // A new other half is not there yet when the first is saved, whose lines would decide its amount.
  if (from.transactionId != 0) DeleteRows("AllocatedItem = " + SqlNumber(from.transactionId));
  from.transferId = to.transactionId;
  to.transferId = SaveTransaction(from);
  from.transferId = SaveTransaction(to);
  all.Commit();
}

// A key that names no whole row would leave a transfer that points into nothing.
bool clsCorvanta::CanBeTwin(std::int64_t twin, std::int64_t key) {
  if (twin == 0 || twin == key) return false;
  const std::optional<RowLinks> row = ReadLinks(connection_, twin);
  return row && row->allocatedItem == 0;
}

// A line belongs to an ordinary row; false when its parent is none.
bool clsCorvanta::TakeFromParent(TransactionRecord& line) {
  const Recordset parent = connection_.OpenRecordset(
      "Select * from tblTransactions Where TransactionID = " + SqlNumber(line.allocatedItem));
  if (parent.Eof() || parent.Int("AllocatedItem") != 0 || parent.Int("TransferID") != 0) {
    return false;
  }
  line.accountId = parent.Int("AccountID");
  line.date = Date::FromIso(parent.Text("Date").substr(0, 10)).value_or(line.date);
  line.status = {static_cast<int>(parent.Int("BankChk")), static_cast<int>(parent.Int("BankRec"))};
  if (line.paymentId == 0) line.paymentId = parent.Int("PaymentID");
  if (line.payeeId == 0) line.payeeId = parent.Int("PayeeID");
  line.action = 0;
  line.transferId = 0;
  return true;
}

std::int64_t clsCorvanta::WriteRow(const TransactionRecord& record) {
  const bool isNew = record.transactionId == 0;
  Recordset row =
      connection_.OpenRecordset(isNew ? "tblTransactions"
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

void clsCorvanta::RepairTransfer(std::int64_t key, std::int64_t twin) {
  const std::string own = SqlNumber(key);
  const std::string other = SqlNumber(twin);
  if (twin == 0) {
    connection_.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + own);
    return;
  }
  // What either half belonged to before becomes an ordinary row.
  connection_.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + own +
                      " AND TransactionID <> " + other);
  connection_.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " + other +
                      " AND TransactionID <> " + own);
  connection_.Execute("UPDATE tblTransactions SET TransferID = " + own +
                      " WHERE TransactionID = " + other);
  DeleteRows("AllocatedItem = " + own + " OR AllocatedItem = " + other);
}

bool clsCorvanta::SumLines(std::int64_t parentId) {
  const Value sum = connection_.QueryValue(
      "Select SUM(Amount) as AAmount from tblTransactions Where AllocatedItem = " +
      SqlNumber(parentId));
  if (sum.IsNull()) return false;
  connection_.Execute(
      "UPDATE tblTransactions SET [Amount] = " + SqlNumber(RoundMoney(sum.Double())) +
      " WHERE TransactionId = " + SqlNumber(parentId));
  return true;
}

void clsCorvanta::LinesFollow(const TransactionRecord& parent) {
  const std::string lines = " WHERE AllocatedItem = " + SqlNumber(parent.transactionId);
  connection_.Execute("UPDATE tblTransactions SET [Date] = " + SqlDate(parent.date) +
                      ", BankChk = " + std::to_string(parent.status.bankChk) +
                      ", BankRec = " + std::to_string(parent.status.bankRec) + lines);
  connection_.Execute("UPDATE tblTransactions SET AccountID = " + SqlNumber(parent.accountId) +
                      lines);
}

}  // namespace corvanta
