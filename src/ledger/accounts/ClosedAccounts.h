// Closed accounts keep their rows as they are.
#pragma once

#include "ledger/Keys.h"

#include <cstdint>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

struct RowLinks;

inline constexpr const char* kAccountClosed = "This Account is closed, Items cannot be amended";
// The title under which it is told of an item that is there.
inline constexpr const char* kAmendItem = "Amend Item";

// Which accounts are closed, for the topics that write rows: every one of them asks here before it
// changes a row. Operations throw StoreError; the Require operations in the words of
// kAccountClosed where the account is closed.
class ClosedAccounts {
 public:
  explicit ClosedAccounts(Connection& store) : store_(store) {}

  // False for an account that is not there.
  [[nodiscard]] bool Has(std::int64_t accountId);
  // Whether one of the rows, or the other half of a transfer among them, is in a closed account.
  [[nodiscard]] bool AreReachedBy(Keys transactionIds);
  void RequireOpen(std::int64_t accountId);
  // Of the row's own account.
  void RequireOpenOf(std::int64_t transactionId);
  // Of the row's account and that of its other half.
  void RequireOpenHalves(const RowLinks& row);

 private:
  [[nodiscard]] std::int64_t AccountOf(std::int64_t transactionId);
  [[nodiscard]] bool IsReachedBy(const RowLinks& row);

  Connection& store_;
};

}  // namespace corvanta::inline ledger
