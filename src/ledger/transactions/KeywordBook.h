#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/AttachedFiles.h"
#include "ledger/transactions/OpenedAttachments.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

// Keywords and attachments of transactions.
class KeywordBook {
 public:
  explicit KeywordBook(LedgerCore& core) : core_(core) {}

  [[nodiscard]] std::vector<KeywordRecord> Keywords();
  [[nodiscard]] std::vector<KeywordRecord> KeywordsOf(std::int64_t transactionId);
  // Linking twice makes one link.
  void LinkKeyword(std::int64_t keywordId, std::int64_t transactionId);
  void UnlinkKeyword(std::int64_t keywordId, std::int64_t transactionId);
  [[nodiscard]] std::int64_t FindKeyword(const std::string& name);
  std::int64_t FindOrCreateKeyword(const std::string& name);
  std::int64_t SaveKeyword(KeywordRecord& record);
  // Also takes it from every transaction.
  void DeleteKeyword(std::int64_t keywordId);
  // The transactions get these keywords and lose those, by their names, as one step; a keyword that
  // is new is made.
  void ChangeKeywords(Keys transactionIds, const std::vector<std::string>& added,
                      const std::vector<std::string>& removed);
  // What the attached files are and where they are kept.
  [[nodiscard]] AttachedFiles Files() { return AttachedFiles(core_); }
  // Those that other programs have open.
  [[nodiscard]] OpenedAttachments& Opened();
  [[nodiscard]] std::vector<AttachmentRecord> AttachmentsOf(std::int64_t transactionId);
  // A copy beside the data file stays: the row may come back.
  void DeleteAttachment(std::int64_t attachmentId);
  void DeleteAttachments(std::int64_t transactionId);

 private:
  LedgerCore& core_;
  std::unique_ptr<OpenedAttachments> opened_;
};

}  // namespace corvanta::inline ledger
