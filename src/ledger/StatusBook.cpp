#include "ledger/StatusBook.h"

#include "ledger/RowLinks.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {

void StatusBook::SetStatus(std::int64_t transactionId, std::int16_t value, std::int16_t setChk,
                           std::int16_t setRec) {
  const UndoLog::Step step = core_.undo.Begin("Change Status");
  Transaction all = core_.store.Begin();
  core_.closed.RequireOpenOf(transactionId);
  const auto set = [&](const char* column) {
    const std::string assignment =
        std::string("UPDATE tblTransactions Set ") + column + " = " + std::to_string(value);
    core_.store.Execute(assignment + " WHERE TransactionID =" + SqlNumber(transactionId));
    core_.store.Execute(assignment + " WHERE AllocatedItem =" + SqlNumber(transactionId));
  };
  if (transactionId > 0 && setRec > 0) set("BankRec");
  if (transactionId >= 1 && setChk > 0) set("BankChk");
  all.Commit();
}

RowMarks StatusBook::MarksOf(std::int64_t transactionId) {
  const Recordset row = core_.store.OpenRecordset(
      "Select BankChk, BankRec, BankSch, TransferID from tblTransactions Where TransactionID = " +
      SqlNumber(transactionId));
  RowMarks marks;
  if (row.Eof()) return marks;
  marks.flags = {static_cast<int>(row.Int(0)), static_cast<int>(row.Int(1))};
  marks.isUncleared = marks.flags == FlagsOf(TransactionStatus::Uncleared);
  marks.isCleared = marks.flags == FlagsOf(TransactionStatus::Cleared);
  marks.isReconciled = marks.flags == FlagsOf(TransactionStatus::Reconciled);
  marks.scheduleId = row.Int(2);
  marks.transferId = row.Int(3);
  return marks;
}

bool StatusBook::ApplyStatus(StatusCommand command, Keys transactionIds, bool isTicked) {
  const UndoLog::Step step = core_.undo.Begin("Change Status");
  return core_.ForEachRow(transactionIds,
                          [&](std::int64_t key) { ApplyStatus(command, key, isTicked); });
}

void StatusBook::ApplyStatus(StatusCommand command, std::int64_t transactionId, bool isTicked) {
  Transaction both = core_.store.Begin();
  const std::optional<RowLinks> row = ReadLinks(core_.store, transactionId);
  if (!row) return;
  // A line has the status of its parent.
  const std::int64_t key = row->allocatedItem != 0 ? row->allocatedItem : transactionId;
  const std::int16_t mark = isTicked ? 0 : 1;
  switch (command) {
    case StatusCommand::Uncleared:
      SetStatus(key, 0, 1, 1);
      break;
    case StatusCommand::Cleared:
      SetStatus(key, mark, 1, 0);
      SetStatus(key, 0, 0, 1);
      break;
    case StatusCommand::Reconciled:
      SetStatus(key, mark, 0, 1);
      SetStatus(key, 1, 1, 0);
      break;
  }
  both.Commit();
}

bool StatusBook::Settle(std::span<const Settlement> rows, Progress& progress) {
  const UndoLog::Step step = core_.undo.Begin("Balance Account");
  return core_.ForEachRow(rows.size(), progress, [&](std::size_t row) { Settle(rows[row]); });
}

void StatusBook::Settle(const Settlement& row) {
  Transaction both = core_.store.Begin();
  if (row.isTicked) {
    SetStatus(row.transactionId, 1, 1, 0);
    SetStatus(row.transactionId, 1, 0, 1);
  } else if (!MarksOf(row.transactionId).isCleared) {
    SetStatus(row.transactionId, 0, 1, 0);
    SetStatus(row.transactionId, 0, 0, 1);
  }
  both.Commit();
}

}  // namespace corvanta::inline ledger
