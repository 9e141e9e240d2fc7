#include "ledger/transactions/KeywordBook.h"

#include "ledger/reference/ReferenceRows.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {

std::vector<KeywordRecord> KeywordBook::Keywords() {
  return ReferenceRows<KeywordRecord>(core_).All();
}

std::vector<KeywordRecord> KeywordBook::KeywordsOf(std::int64_t transactionId) {
  return ReferenceRows<KeywordRecord>(core_).Read(
      "Select * from tblKeywordLink kl INNER JOIN tblKeywords k on k.KeywordId = "
      "kl.KeywordId Where TransactionID = " +
      SqlNumber(transactionId) + " Order by k.[Keyword]");
}

void KeywordBook::LinkKeyword(std::int64_t keywordId, std::int64_t transactionId) {
  core_.closed.RequireOpenOf(transactionId);
  const UndoLog::Step step = core_.undo.Begin("Add Keyword");
  Transaction all = core_.store.Begin();
  const std::string keyword = SqlNumber(keywordId);
  const std::string transaction = SqlNumber(transactionId);
  if (core_.ReadKey("Select LinkID from tblKeywordLink Where KeywordId = " + keyword +
                        " AND TransactionId = " + transaction,
                    "LinkID") != 0) {
    return;
  }
  core_.store.Execute("INSERT INTO tblKeywordLink (KeywordId, TransactionId)  VALUES (" + keyword +
                      "," + transaction + ")");
  all.Commit();
}

void KeywordBook::UnlinkKeyword(std::int64_t keywordId, std::int64_t transactionId) {
  core_.closed.RequireOpenOf(transactionId);
  const UndoLog::Step step = core_.undo.Begin("Remove Keyword");
  core_.store.Execute("DELETE FROM tblKeywordLink WHERE KeyWordId = " + SqlNumber(keywordId) +
                      " AND TransactionId = " + SqlNumber(transactionId));
}

std::int64_t KeywordBook::FindKeyword(const std::string& name) {
  return ReferenceRows<KeywordRecord>(core_).Find(name);
}

std::int64_t KeywordBook::FindOrCreateKeyword(const std::string& name) {
  return ReferenceRows<KeywordRecord>(core_).FindOrCreate(name);
}

std::int64_t KeywordBook::SaveKeyword(KeywordRecord& record) {
  return ReferenceRows<KeywordRecord>(core_).Save(record);
}

void KeywordBook::DeleteKeyword(std::int64_t keywordId) {
  ReferenceRows<KeywordRecord>(core_).Delete(keywordId);
}

void KeywordBook::ChangeKeywords(Keys transactionIds, const std::vector<std::string>& added,
                                 const std::vector<std::string>& removed) {
  const UndoLog::Step step = core_.undo.Begin("Edit Keywords");
  core_.ForEachRow(transactionIds, [&](std::int64_t transaction) {
    for (const std::string& name : added) LinkKeyword(FindOrCreateKeyword(name), transaction);
    for (const std::string& name : removed) UnlinkKeyword(FindKeyword(name), transaction);
  });
}

OpenedAttachments& KeywordBook::Opened() {
  if (opened_ == nullptr) {
    opened_ = std::make_unique<OpenedAttachments>(core_, core_.platform.profileFolder + "/opened");
  }
  return *opened_;
}

std::vector<AttachmentRecord> KeywordBook::AttachmentsOf(std::int64_t transactionId) {
  return Files().Of(transactionId);
}

void KeywordBook::DeleteAttachment(std::int64_t attachmentId) {
  const auto row = Files().Find(attachmentId);
  if (!row) return;
  core_.closed.RequireOpenOf(row->transactionId);
  const UndoLog::Step step = core_.undo.Begin("Remove Attachment");
  Transaction all = core_.store.Begin();
  Files().DeleteRows("AttachmentID =" + SqlNumber(attachmentId));
  all.Commit();
}

void KeywordBook::DeleteAttachments(std::int64_t transactionId) {
  core_.closed.RequireOpenOf(transactionId);
  const UndoLog::Step step = core_.undo.Begin("Remove Attachments");
  Transaction all = core_.store.Begin();
  Files().DeleteRows("TransactionId =" + SqlNumber(transactionId));
  all.Commit();
}

}  // namespace corvanta::inline ledger
