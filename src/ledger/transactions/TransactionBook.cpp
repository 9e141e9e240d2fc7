#include "ledger/transactions/TransactionBook.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/RowLinks.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {

std::int64_t TransactionBook::SaveTransaction(TransactionRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Transaction");
  Transaction all = core_.store.Begin();
  std::optional<RowLinks> former;
  if (record.transactionId != 0) {
    former = ReadLinks(core_.store, record.transactionId);
    if (!former) return 0;
    core_.closed.RequireOpenHalves(*former);
    record.allocatedItem = former->allocatedItem;
  }
  if (record.allocatedItem != 0 && !InheritFromParent(record)) return 0;
  core_.closed.RequireOpen(record.accountId);
  const std::optional<RowLinks> twin = rows_.ReadTwin(record.transferId, record.transactionId);
  if (!twin) record.transferId = 0;
  // Becoming a half changes it, and the row that it was a half with before.
  const bool isOtherTwin = !former || record.transferId != former->transferId;
  if (twin && isOtherTwin) core_.closed.RequireOpenHalves(*twin);
  record.amount = former ? core_.amounts.Replacing(*former, record.accountId, record.amount)
                         : core_.amounts.In(record.accountId, record.amount);
  record.transactionId = rows_.WriteRow(record);
  if (record.allocatedItem != 0) {
    rows_.SumLines(record.allocatedItem);
  } else {
    rows_.RepairTransfer(record.transactionId, record.transferId);
    if (rows_.SumLines(record.transactionId)) rows_.LinesFollow(record);
    const bool hasMoved = former && former->accountId != record.accountId;
    if (hasMoved) rows_.FitAccount(record.transactionId, record.accountId);
  }
  all.Commit();
  return record.transactionId;
}

void TransactionBook::SaveTransfer(TransactionRecord& from, TransactionRecord& to) {
  const UndoLog::Step step = core_.undo.Begin("Save Transfer");
  Transaction all = core_.store.Begin();
  // A new other half is not there yet when the first is saved, whose lines would decide its amount.
  if (from.transactionId != 0) rows_.DeleteRows("AllocatedItem = " + SqlNumber(from.transactionId));
  from.transferId = to.transactionId;
  to.transferId = SaveTransaction(from);
  from.transferId = SaveTransaction(to);
  all.Commit();
}

// A line belongs to an ordinary row; false when its parent is none.
bool TransactionBook::InheritFromParent(TransactionRecord& line) {
  const Recordset parent = core_.store.OpenRecordset(
      "Select * from tblTransactions Where TransactionID = " + SqlNumber(line.allocatedItem));
  if (parent.Eof() || parent.Int("AllocatedItem") != 0 || parent.Int("TransferID") != 0) {
    return false;
  }
  line.accountId = parent.Int("AccountID");
  line.date = parent.Day("Date").value_or(line.date);
  line.status = {static_cast<int>(parent.Int("BankChk")), static_cast<int>(parent.Int("BankRec"))};
  if (line.paymentId == 0) line.paymentId = parent.Int("PaymentID");
  if (line.payeeId == 0) line.payeeId = parent.Int("PayeeID");
  line.action = 0;
  line.transferId = 0;
  return true;
}

std::int64_t TransactionBook::AddTransaction(TransactionRecord& record,
                                             std::span<TransactionRecord> lines) {
  const UndoLog::Step step = core_.undo.Begin("Add Transaction");
  core_.closed.RequireOpen(record.accountId);
  record.transactionId = 0;
  record.allocatedItem = 0;
  record.transferId = 0;
  if (lines.empty()) {  // one statement is whole
    record.amount = core_.amounts.In(record.accountId, record.amount);
    record.transactionId = rows_.WriteRow(record);
    return record.transactionId;
  }
  Transaction all = core_.store.Begin();
  PartsInCurrency parts = core_.amounts.PartsIn(record.accountId);
  for (TransactionRecord& line : lines) line.amount = parts.Next(line.amount);
  record.amount = parts.Sum();
  record.transactionId = rows_.WriteRow(record);
  for (TransactionRecord& line : lines) {
    line.transactionId = 0;
    line.allocatedItem = record.transactionId;
    line.transferId = 0;
    line.action = 0;
    line.accountId = record.accountId;
    line.date = record.date;
    line.status = record.status;
    line.payeeId = record.payeeId;
    line.paymentId = record.paymentId;
    line.transactionId = rows_.WriteRow(line);
  }
  all.Commit();
  return record.transactionId;
}

void TransactionBook::DeleteTransaction(std::int64_t transactionId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Transaction");
  Transaction all = core_.store.Begin();
  const std::optional<RowLinks> row = ReadLinks(core_.store, transactionId);
  if (!row) return;
  core_.closed.RequireOpenHalves(*row);
  rows_.DeleteWhole(transactionId);
  if (row->transferId != 0) rows_.DeleteWhole(row->transferId);
  if (row->allocatedItem != 0) rows_.SumLines(row->allocatedItem);
  all.Commit();
}

bool TransactionBook::DeleteTransactions(Keys transactionIds) {
  const UndoLog::Step step =
      core_.undo.Begin(transactionIds.size() == 1 ? "Delete Transaction" : "Delete Transactions");
  return core_.ForEachRow(transactionIds, [this](std::int64_t key) { DeleteTransaction(key); });
}

bool TransactionBook::ReachesClosedAccount(Keys transactionIds) {
  return core_.closed.AreReachedBy(transactionIds);
}

std::int64_t TransactionBook::Autofill(const AutofillEntry& entry) {
  std::optional<TransactionRecord> record;
  if (entry.transactionId == 0) {
    record = LastTransaction(entry.accountId, entry.payeeId, entry.categoryId);
  } else if (const auto row = ReadTransaction(entry.transactionId)) {
    record = *row;
  }
  if (!record || record->transferId != 0 || record->action != 0) return 0;

  const UndoLog::Step step = core_.undo.Begin("Autofill Transaction");
  Transaction all = core_.store.Begin();
  if (entry.transactionId == 0) {
    TransactionRecord fresh;
    fresh.accountId = entry.accountId;
    fresh.paymentId = record->paymentId;
    fresh.reference = record->reference;
    fresh.description = record->description;
    record = fresh;
  } else if (record->amount * entry.amount < 0) {
    // Lines decide their parent's amount, so they have to change sides with it.
    ledger_.BulkEdits().ReverseSign(entry.transactionId);
  }
  record->payeeId = entry.payeeId;
  record->categoryId = entry.categoryId;
  record->amount = entry.amount;
  record->date = entry.date;
  const std::int64_t key = SaveTransaction(*record);
  all.Commit();
  return key;
}

}  // namespace corvanta::inline ledger
