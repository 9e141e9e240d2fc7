#pragma once

#include "ledger/reference/ReferenceRecords.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanta::inline ledger {

class clsCorvanta;

// Transfers of which an import brought one half only: rows whose category names another account
// ("Account:Savings") and that have found no partner there.
class TransferCompletion {
 public:
  using Keys = std::span<const std::int64_t>;

  explicit TransferCompletion(clsCorvanta& ledger) : ledger_(ledger) {}

  // Those of the rows that name another account and are no halves of a transfer yet.
  [[nodiscard]] std::vector<std::int64_t> LoneHalves(Keys transactionIds);
  // Those of them whose other half can be made: an ordinary row, and an open account of the same
  // currency in which it goes.
  [[nodiscard]] std::vector<std::int64_t> Completable(Keys transactionIds);
  // Makes the other halves of those that can be completed, all or none, as one step that can be
  // undone. Returns how many were made. Throws StoreError.
  std::size_t Complete(Keys transactionIds);

 private:
  // The account that the row names and that can take its other half; 0 for none.
  [[nodiscard]] std::int64_t OtherAccountOf(std::int64_t transactionId);
  [[nodiscard]] const std::optional<AccountRecord>& Account(std::int64_t accountId);

  clsCorvanta& ledger_;
  // Read once: many rows name few accounts.
  std::unordered_map<std::string, std::int64_t> named_;
  std::unordered_map<std::int64_t, std::optional<AccountRecord>> accounts_;
};

}  // namespace corvanta::inline ledger
