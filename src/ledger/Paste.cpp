#include "ledger/RowLinks.h"
#include "ledger/ScheduleRows.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta {
namespace {

bool IsOpenAccount(const std::optional<AccountRecord>& account) {
  return account && !account->closed;
}

std::vector<std::int64_t> ReadKeys(Connection& store, const std::string& sql) {
  std::vector<std::int64_t> keys;
  Recordset rows = store.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) keys.push_back(rows.Int(0));
  return keys;
}

}  // namespace

std::int64_t clsCorvanta::PasteTransaction(std::int64_t sourceId, std::int64_t accountId) {
  const UndoLog::Step step = undo_.Begin("Paste Transaction");
  Transaction all = connection_.Begin();
  const std::optional<RowLinks> source = ReadLinks(connection_, sourceId);
  if (!source || !ReadAccount(accountId)) return 0;
  const std::int64_t copy = CopyRow(sourceId, accountId, 0);
  const std::string lines =
      "Select TransactionID from tblTransactions Where AllocatedItem = " + SqlNumber(sourceId);
  for (const std::int64_t line : ReadKeys(connection_, lines)) CopyRow(line, accountId, copy);
  if (source->transferId != 0) PasteTwin(source->transferId, copy, accountId);
  all.Commit();
  return copy;
}

std::int64_t clsCorvanta::PasteTransactions(Keys sourceIds, std::int64_t accountId) {
  const UndoLog::Step step = undo_.Begin("Paste Transaction");
  std::int64_t last = 0;
  const bool isDone = ForEachRow(sourceIds, [&](std::int64_t key) {
    last = std::max(last, PasteTransaction(key, accountId));
  });
  return isDone ? last : 0;
}

// Two rows must not name one twin, so the copy gets one of its own where that makes a transfer.
void clsCorvanta::PasteTwin(std::int64_t twinId, std::int64_t copy, std::int64_t accountId) {
  const std::optional<RowLinks> twin = ReadLinks(connection_, twinId);
  if (!twin || twin->accountId == accountId || !IsOpenAccount(ReadAccount(accountId)) ||
      !IsOpenAccount(ReadAccount(twin->accountId))) {
    return;
  }
  const std::int64_t twinCopy = CopyRow(twinId, twin->accountId, 0);
  const auto link = [this](std::int64_t key, std::int64_t other) {
    connection_.Execute("UPDATE tblTransactions SET TransferID = " + SqlNumber(other) +
                        " WHERE TransactionID = " + SqlNumber(key));
  };
  link(copy, twinCopy);
  link(twinCopy, copy);
}

std::int64_t clsCorvanta::CopyRow(std::int64_t sourceId, std::int64_t accountId,
                                  std::int64_t parentId) {
  const std::string source = SqlNumber(sourceId);
  connection_.Execute(
      "Insert INTO tblTransactions (AccountID,[Action],AllocatedItem,[Amount],BankChk,BankRec,"
      "CategoryID,Commission,[Date],Description,Dividend,PayeeID,PaymentID,[Price],Reference,"
      "Shares,TransferID) SELECT " +
      SqlNumber(accountId) + ",[Action]," + SqlNumber(parentId) +
      ",[Amount],BankChk,BankRec,"
      "CategoryID,Commission,[Date],Description,Dividend,PayeeID,PaymentID,[Price],Reference,"
      "Shares,0 from tblTransactions WHERE TransactionId = " +
      source);
  const std::int64_t copy =
      ReadKey("Select Max(TransactionID) as TransactionID from tblTransactions", "TransactionID");
  const std::string key = SqlNumber(copy);
  connection_.Execute(
      "Insert INTO tblAttachments (TransactionId,AttachmentFile,AttachmentPath,AttachmentStore) "
      "SELECT " +
      key +
      ", AttachmentFile,AttachmentPath,AttachmentStore from tblAttachments "
      "WHERE TransactionId = " +
      source);
  connection_.Execute("Insert INTO tblKeywordLink (KeywordId, TransactionId) SELECT KeywordId, " +
                      key + " from tblKeywordLink WHERE TransactionId = " + source);
  return copy;
}

std::int64_t clsCorvanta::PasteSchedule(std::int64_t scheduleId) {
  const UndoLog::Step step = undo_.Begin("Paste Schedule");
  Transaction all = connection_.Begin();
  const std::int64_t copy = CopySchedule(scheduleId, 0);
  if (copy == 0) return 0;
  const std::string lines =
      "Select * from tblSchedule Where AllocatedItem = " + SqlNumber(scheduleId);
  for (const std::int64_t line : ReadKeys(connection_, lines)) CopySchedule(line, copy);
  BeginBehind(*ReadSchedule(scheduleId), copy);
  all.Commit();
  return copy;
}

// The copy goes on where its original stands: what that one has posted comes no second time. Of a
// finished one the copy is finished too, until a person gives it a plan.
void clsCorvanta::BeginBehind(const ScheduleDetails& source, std::int64_t copy) {
  ScheduleRecord record = *ReadSchedule(copy);
  if (record.allocatedItem != 0) return;
  record.days = source.days;
  const SchedulePlan plan = PlanOf(source);
  const std::optional<Date> last = PostedOf(connection_, source.scheduleId).Last();
  const auto step = plan.Step();
  const int payments = plan.Payments();
  int passed = 0;
  while (step && (source.isFinished ? passed < payments : last && record.dateFrom <= *last)) {
    record.dateFrom = step->After(record.dateFrom);
    ++passed;
  }
  if (payments > 0) record.noTimes = passed < payments ? payments - passed : -payments;
  SaveSchedule(record);
}

std::int64_t clsCorvanta::CopySchedule(std::int64_t sourceId, std::int64_t parentId) {
  const int copied = connection_.Execute(
      "Insert INTO tblSchedule (AccountID,AddToAccount,AllocatedItem,[Amount],CategoryID,"
      "[DateFrom],Description,NoTimes,PayeeID,PaymentID,PeriodID,Reference,TfrAccountID) "
      "SELECT AccountID,AddToAccount," +
      SqlNumber(parentId) +
      ",[Amount],CategoryID , [DateFrom], Description, NoTimes, PayeeID, PaymentID, PeriodID, "
      "Reference, TfrAccountID from tblSchedule WHERE ScheduleId = " +
      SqlNumber(sourceId));
  if (copied == 0) return 0;
  return ReadKey("Select Max(ScheduleID) as ScheduleID from tblSchedule", "ScheduleID");
}

}  // namespace corvanta
