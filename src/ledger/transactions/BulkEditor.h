#pragma once

#include "ledger/Keys.h"
#include "ledger/LedgerCore.h"
#include "ledger/transactions/BulkChange.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline ledger {

struct RowLinks;

// The same change of several transactions.
class BulkEditor {
 public:
  explicit BulkEditor(LedgerCore& core) : core_(core) {}

  // Payment type, payee and category of an investment transaction never change, nor the sign of an
  // investment transaction or a transfer. Lines follow their parent. A transfer half stays out of
  // the account that its other half is in.
  // True when the row is another one afterwards.
  bool BulkEdit(std::int64_t transactionId, const BulkChange& change);
  // Returns how many rows were changed; nullopt when the person asked to stop, and none was.
  std::optional<std::size_t> BulkEdit(Keys transactionIds, const BulkChange& change);
  // Of an ordinary row and its lines; transfers and investment transactions keep their sign.
  void ReverseSign(std::int64_t transactionId);

 private:
  void ApplyColumns(std::int64_t transactionId, const BulkChange& change);
  void ApplyType(std::int64_t transactionId, const RowLinks& row, TypeChange type);
  void FlipSign(std::int64_t transactionId, const RowLinks& row);

  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
