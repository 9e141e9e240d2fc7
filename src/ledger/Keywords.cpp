// Keywords and attachments of transactions.
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta {
namespace {

std::vector<KeywordRecord> ReadKeywords(Connection& store, const std::string& sql) {
  std::vector<KeywordRecord> keywords;
  Recordset rows = store.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) {
    keywords.push_back({rows.Int("KeywordID"), rows.Text("Keyword")});
  }
  return keywords;
}

}  // namespace

std::vector<KeywordRecord> clsCorvanta::Keywords() {
  return ReadKeywords(connection_, "Select * from tblKeywords Order by [Keyword]");
}

std::vector<KeywordRecord> clsCorvanta::KeywordsOf(std::int64_t transactionId) {
  return ReadKeywords(connection_,
                      "Select * from tblKeywordLink kl INNER JOIN tblKeywords k on k.KeywordId = "
                      "kl.KeywordId Where TransactionID = " +
                          SqlNumber(transactionId) + " Order by k.[Keyword]");
}

void clsCorvanta::LinkKeyword(std::int64_t keywordId, std::int64_t transactionId) {
  const UndoLog::Step step = undo_.Begin("Add Keyword");
  Transaction all = connection_.Begin();
  const std::string keyword = SqlNumber(keywordId);
  const std::string transaction = SqlNumber(transactionId);
  if (ReadKey("Select LinkID from tblKeywordLink Where KeywordId = " + keyword +
                  " AND TransactionId = " + transaction,
              "LinkID") != 0) {
    return;
  }
  connection_.Execute("INSERT INTO tblKeywordLink (KeywordId, TransactionId)  VALUES (" + keyword +
                      "," + transaction + ")");
  all.Commit();
}

void clsCorvanta::UnlinkKeyword(std::int64_t keywordId, std::int64_t transactionId) {
  const UndoLog::Step step = undo_.Begin("Remove Keyword");
  connection_.Execute("DELETE FROM tblKeywordLink WHERE KeyWordId = " + SqlNumber(keywordId) +
                      " AND TransactionId = " + SqlNumber(transactionId));
}

std::int64_t clsCorvanta::FindKeyword(const std::string& name) {
  return ReadKey("Select * from tblKeywords where lcase(Keyword) =" + SqlText(ToLower(Trim(name))),
                 "KeywordID");
}

std::int64_t clsCorvanta::FindOrCreateKeyword(const std::string& name) {
  KeywordRecord record{FindKeyword(name), std::string(Trim(name))};
  if (record.keywordId != 0 || record.keyword.empty()) return record.keywordId;
  return SaveKeyword(record);
}

std::int64_t clsCorvanta::SaveKeyword(KeywordRecord& record) {
  const UndoLog::Step step = undo_.Begin("Save Keyword");
  return record.keywordId =
             SaveRow("tblKeywords", "KeywordID", record.keywordId, {{"Keyword", record.keyword}});
}

void clsCorvanta::DeleteKeyword(std::int64_t keywordId) {
  const UndoLog::Step step = undo_.Begin("Delete Keyword");
  Transaction all = connection_.Begin();
  connection_.Execute("Delete from tblKeywords Where KeywordId =" + SqlNumber(keywordId));
  connection_.Execute("Delete from tblKeywordLink Where KeywordId =" + SqlNumber(keywordId));
  all.Commit();
}

std::vector<AttachmentRecord> clsCorvanta::AttachmentsOf(std::int64_t transactionId) {
  std::vector<AttachmentRecord> attachments;
  Recordset rows = connection_.OpenRecordset("Select * from tblAttachments Where TransactionId =" +
                                             SqlNumber(transactionId) + " Order by AttachmentID");
  for (; !rows.Eof(); rows.MoveNext()) {
    attachments.push_back({rows.Int("AttachmentID"), rows.Int("TransactionID"),
                           rows.Text("AttachmentFile"), rows.Text("AttachmentPath"),
                           rows.Text("AttachmentStore")});
  }
  return attachments;
}

std::int64_t clsCorvanta::AddAttachment(AttachmentRecord& record) {
  const UndoLog::Step step = undo_.Begin("Attach File");
  return record.attachmentId = SaveRow("tblAttachments", "AttachmentID", 0,
                                       {{"TransactionID", record.transactionId},
                                        {"AttachmentFile", record.file},
                                        {"AttachmentPath", record.path},
                                        {"AttachmentStore", record.store}});
}

void clsCorvanta::DeleteAttachment(std::int64_t attachmentId) {
  const UndoLog::Step step = undo_.Begin("Remove Attachment");
  connection_.Execute("Delete from tblAttachments Where AttachmentID =" + SqlNumber(attachmentId));
}

void clsCorvanta::DeleteAttachments(std::int64_t transactionId) {
  const UndoLog::Step step = undo_.Begin("Remove Attachments");
  connection_.Execute("Delete from tblAttachments Where TransactionId =" +
                      SqlNumber(transactionId));
}

}  // namespace corvanta
