#pragma once

#include "entry/TransactionForm.h"
#include "ledger/transactions/TransactionRecord.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline entry {

// A transaction as the data file holds it, with the other half of a transfer.
struct StoredTransaction {
  TransactionDetails row;
  std::optional<TransactionDetails> other;

  // Whether the row is the half of its transfer that receives.
  [[nodiscard]] bool IsToHalf() const;
  // Whether a closed account holds one of its halves.
  [[nodiscard]] bool IsClosed() const;
};

// nullopt when there is no such row. Throws StoreError, as the other operations do.
[[nodiscard]] std::optional<StoredTransaction> ReadStored(clsCorvanta& ledger, std::int64_t key);
// An ordinary row, or a half of a transfer, as the editor shows it.
[[nodiscard]] TransactionForm FormOf(clsCorvanta& ledger, const StoredTransaction& stored);

}  // namespace corvanta::inline entry
