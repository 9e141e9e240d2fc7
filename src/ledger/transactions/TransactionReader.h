#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/transactions/TransactionRecord.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace corvanta::inline ledger {

// Reading transactions. Keys are 0 for none; a key that does not exist reads nothing. Throws
// StoreError.
class TransactionReader {
 public:
  explicit TransactionReader(LedgerCore& core) : core_(core) {}

  [[nodiscard]] std::optional<TransactionDetails> ReadTransaction(std::int64_t transactionId);
  // The lines of a split transaction in order of their keys.
  [[nodiscard]] std::vector<TransactionDetails> SplitLines(std::int64_t transactionId);
  // The account's latest row of that payee, and of that category unless it is 0.
  [[nodiscard]] std::optional<TransactionRecord> LastTransaction(std::int64_t accountId,
                                                                 std::int64_t payeeId,
                                                                 std::int64_t categoryId = 0);

 protected:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
