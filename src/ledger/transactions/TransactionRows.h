#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/transactions/RowLinks.h"
#include "ledger/transactions/TransactionRecord.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {

// The rows of tblTransactions, and what hangs together among them: the halves of transfers, the
// lines of a split and what is linked to a row. For the topics of the ledger, which begin the
// transactions and the steps of undo.
class TransactionRows {
 public:
  explicit TransactionRows(LedgerCore& core) : core_(core) {}

  // The row that is to be the other half of the one with this key; nullopt for one that cannot be:
  // a key that names no whole row would leave a transfer that points into nothing.
  [[nodiscard]] std::optional<RowLinks> ReadTwin(std::int64_t twin, std::int64_t key);
  // A new row for the key 0; returns the key.
  std::int64_t WriteRow(const TransactionRecord& record);
  // Makes the two rows halves of one transfer, which keep no lines; with the twin 0 the row ceases
  // to be one.
  void RepairTransfer(std::int64_t key, std::int64_t twin);
  // Gives a parent the sum of its lines; false when it has none.
  bool SumLines(std::int64_t parentId);
  // The lines take their parent's account, date and status.
  void LinesFollow(const TransactionRecord& parent);
  // The row and its lines, which have come into that account, get amounts as it holds them.
  void FitAccount(std::int64_t transactionId, std::int64_t accountId);
  // A row with its lines; whatever still names it as its other half becomes an ordinary row.
  void DeleteWhole(std::int64_t transactionId);
  // The rows that the condition is about, with what is linked and attached to them.
  void DeleteRows(const std::string& condition);

 private:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
