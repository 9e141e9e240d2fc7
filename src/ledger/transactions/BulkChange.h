#pragma once

#include "ledger/transactions/TransactionStatus.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline ledger {

// What becomes of the sign of a row's amount; the numbers are the codes of the multi-edit.
enum class TypeChange { None = 0, Income = 1, Expense = -1, Reverse = 2 };

// What a bulk edit changes in every chosen row; 0, none and nullopt leave a column as it is.
struct BulkChange {
  std::int64_t accountId = 0;
  std::int64_t paymentId = 0;
  std::int64_t payeeId = 0;
  std::int64_t categoryId = 0;
  std::optional<TransactionStatus> status;
  TypeChange type = TypeChange::None;
};

}  // namespace corvanta::inline ledger
