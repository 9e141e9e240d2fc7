#include "ledger/transactions/TransactionPaste.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleRows.h"
#include "ledger/transactions/RowLinks.h"
#include "ledger/transactions/TransactionRows.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <algorithm>

namespace corvanta::inline ledger {
std::int64_t TransactionPaste::PasteTransaction(std::int64_t sourceId, std::int64_t accountId) {
  const UndoLog::Step step = core_.undo.Begin("Paste Transaction");
  Transaction all = core_.store.Begin();
  const std::optional<RowLinks> source = ReadLinks(core_.store, sourceId);
  if (!source || !ledger_.Accounts().ReadAccount(accountId)) return 0;
  core_.closed.RequireOpen(accountId);
  const std::int64_t copy = CopyRow(sourceId, accountId, 0);
  const std::string lines =
      "Select TransactionID from tblTransactions Where AllocatedItem = " + SqlNumber(sourceId);
  for (const std::int64_t line : ReadKeys(core_.store, lines)) CopyRow(line, accountId, copy);
  if (source->accountId != accountId) TransactionRows(core_).FitAccount(copy, accountId);
  if (source->transferId != 0) PasteTwin(source->transferId, copy, accountId);
  all.Commit();
  return copy;
}

std::int64_t TransactionPaste::PasteTransactions(Keys sourceIds, std::int64_t accountId) {
  const UndoLog::Step step = core_.undo.Begin("Paste Transaction");
  std::int64_t last = 0;
  const bool isDone = core_.ForEachRow(sourceIds, [&](std::int64_t key) {
    const std::optional<RowLinks> row = ReadLinks(core_.store, key);
    const std::int64_t own = row ? row->accountId : 0;
    last = std::max(last, PasteTransaction(key, accountId == 0 ? own : accountId));
  });
  return isDone ? last : 0;
}

// Two rows must not name one twin, so the copy gets one of its own where that makes a transfer.
void TransactionPaste::PasteTwin(std::int64_t twinId, std::int64_t copy, std::int64_t accountId) {
  const std::optional<RowLinks> twin = ReadLinks(core_.store, twinId);
  if (!twin || twin->accountId == accountId || core_.closed.Has(twin->accountId)) return;
  const std::int64_t twinCopy = CopyRow(twinId, twin->accountId, 0);
  const auto link = [this](std::int64_t key, std::int64_t other) {
    core_.store.Execute("UPDATE tblTransactions SET TransferID = " + SqlNumber(other) +
                        " WHERE TransactionID = " + SqlNumber(key));
  };
  link(copy, twinCopy);
  link(twinCopy, copy);
}

std::int64_t TransactionPaste::CopyRow(std::int64_t sourceId, std::int64_t accountId,
                                       std::int64_t parentId) {
  const std::string source = SqlNumber(sourceId);
  core_.store.Execute(
      "Insert INTO tblTransactions (AccountID,[Action],AllocatedItem,[Amount],BankChk,BankRec,"
      "CategoryID,Commission,[Date],Description,Dividend,PayeeID,PaymentID,[Price],Reference,"
      "Shares,TransferID) SELECT " +
      SqlNumber(accountId) + ",[Action]," + SqlNumber(parentId) +
      ",[Amount],BankChk,BankRec,"
      "CategoryID,Commission,[Date],Description,Dividend,PayeeID,PaymentID,[Price],Reference,"
      "Shares,0 from tblTransactions WHERE TransactionId = " +
      source);
  const std::int64_t copy = core_.ReadKey(
      "Select Max(TransactionID) as TransactionID from tblTransactions", "TransactionID");
  const std::string key = SqlNumber(copy);
  core_.store.Execute(
      "Insert INTO tblAttachments (TransactionId,AttachmentFile,AttachmentPath,AttachmentStore) "
      "SELECT " +
      key +
      ", AttachmentFile,AttachmentPath,AttachmentStore from tblAttachments "
      "WHERE TransactionId = " +
      source);
  core_.store.Execute("Insert INTO tblKeywordLink (KeywordId, TransactionId) SELECT KeywordId, " +
                      key + " from tblKeywordLink WHERE TransactionId = " + source);
  return copy;
}

}  // namespace corvanta::inline ledger
