#pragma once

#include "ledger/Keys.h"
#include "ledger/LedgerCore.h"

#include <cstdint>

namespace corvanta::inline ledger {

class clsCorvanta;

// Copies of transactions.
class TransactionPaste {
 public:
  TransactionPaste(LedgerCore& core, clsCorvanta& ledger) : core_(core), ledger_(ledger) {}

  // A copy in the account, with its lines, keywords and attachments; returns its key, 0 when there
  // is no such row. Of a transfer both halves are copied, where the other half's account is open
  // and another one; otherwise, as of a split line, the copy is an ordinary row.
  std::int64_t PasteTransaction(std::int64_t sourceId, std::int64_t accountId);
  // The same for several, all of them or none, for account 0 each in its own; returns the highest
  // key of the copies, 0 when the person asked to stop, and none was made.
  std::int64_t PasteTransactions(Keys sourceIds, std::int64_t accountId);

 private:
  void PasteTwin(std::int64_t twinId, std::int64_t copy, std::int64_t accountId);
  std::int64_t CopyRow(std::int64_t sourceId, std::int64_t accountId, std::int64_t parentId);

  LedgerCore& core_;
  clsCorvanta& ledger_;
};

}  // namespace corvanta::inline ledger
