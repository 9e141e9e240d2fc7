#include "ledger/transactions/StatusBook.h"

#include "ledger/transactions/RowLinks.h"
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
  Flags flags;
  if (transactionId > 0 && setRec > 0) flags.rec = value;
  if (transactionId > 0 && setChk > 0) flags.chk = value;
  Write(transactionId, flags);
  all.Commit();
}

void StatusBook::Write(std::int64_t transactionId, const Flags& flags) {
  const auto set = [&](const char* column, int value) {
    const std::string assignment =
        std::string("UPDATE tblTransactions Set ") + column + " = " + std::to_string(value);
    core_.store.Execute(assignment + " WHERE TransactionID =" + SqlNumber(transactionId));
    core_.store.Execute(assignment + " WHERE AllocatedItem =" + SqlNumber(transactionId));
  };
  if (flags.rec) set("BankRec", *flags.rec);
  if (flags.chk) set("BankChk", *flags.chk);
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
  const int mark = isTicked ? 0 : 1;
  core_.closed.RequireOpenOf(key);
  switch (command) {
    case StatusCommand::Uncleared:
      Write(key, {0, 0});
      break;
    case StatusCommand::Cleared:
      Write(key, {mark, 0});
      break;
    case StatusCommand::Reconciled:
      Write(key, {1, mark});
      break;
  }
  both.Commit();
}

bool StatusBook::Settle(std::span<const Settlement> rows, Progress& progress) {
  const UndoLog::Step step = core_.undo.Begin("Balance Account");
  return core_.ForEachRow(rows.size(), progress, [&](std::size_t row) { Settle(rows[row]); });
}

void StatusBook::Settle(const Settlement& row) {
  if (!row.isTicked && MarksOf(row.transactionId).isCleared) return;
  Transaction both = core_.store.Begin();
  core_.closed.RequireOpenOf(row.transactionId);
  const int mark = row.isTicked ? 1 : 0;
  if (row.transactionId > 0) Write(row.transactionId, {mark, mark});
  both.Commit();
}

}  // namespace corvanta::inline ledger
