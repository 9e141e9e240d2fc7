#include "ledger/RowLinks.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {

void clsCorvanta::SetStatus(std::int64_t transactionId, std::int16_t value, std::int16_t setChk,
                            std::int16_t setRec) {
  const UndoLog::Step step = undo_.Begin("Change Status");
  Transaction all = connection_.Begin();
  const auto set = [&](const char* column) {
    const std::string assignment =
        std::string("UPDATE tblTransactions Set ") + column + " = " + std::to_string(value);
    connection_.Execute(assignment + " WHERE TransactionID =" + SqlNumber(transactionId));
    connection_.Execute(assignment + " WHERE AllocatedItem =" + SqlNumber(transactionId));
  };
  if (transactionId > 0 && setRec > 0) set("BankRec");
  if (transactionId >= 1 && setChk > 0) set("BankChk");
  all.Commit();
}

RowMarks clsCorvanta::MarksOf(std::int64_t transactionId) {
  const Recordset row = connection_.OpenRecordset(
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

bool clsCorvanta::ApplyStatus(StatusCommand command, Keys transactionIds, bool isTicked) {
  const UndoLog::Step step = undo_.Begin("Change Status");
  return ForEachRow(transactionIds, [&](std::int64_t key) { ApplyStatus(command, key, isTicked); });
}

void clsCorvanta::ApplyStatus(StatusCommand command, std::int64_t transactionId, bool isTicked) {
  Transaction both = connection_.Begin();
  const std::optional<RowLinks> row = ReadLinks(connection_, transactionId);
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

bool clsCorvanta::Settle(std::span<const Settlement> rows, Progress& progress) {
  const UndoLog::Step step = undo_.Begin("Balance Account");
  return ForEachRow(rows.size(), progress, [&](std::size_t row) { Settle(rows[row]); });
}

void clsCorvanta::Settle(const Settlement& row) {
  Transaction both = connection_.Begin();
  if (row.isTicked) {
    SetStatus(row.transactionId, 1, 1, 0);
    SetStatus(row.transactionId, 1, 0, 1);
  } else if (!MarksOf(row.transactionId).isCleared) {
    SetStatus(row.transactionId, 0, 1, 0);
    SetStatus(row.transactionId, 0, 0, 1);
  }
  both.Commit();
}

}  // namespace corvanta
