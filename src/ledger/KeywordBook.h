#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/ReferenceRecords.h"

#include <cstdint>
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
  [[nodiscard]] std::vector<AttachmentRecord> AttachmentsOf(std::int64_t transactionId);
  std::int64_t AddAttachment(AttachmentRecord& record);
  void DeleteAttachment(std::int64_t attachmentId);
  void DeleteAttachments(std::int64_t transactionId);

 private:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
