#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace corvanta::inline ledger {

class RegisterRows;

// What the rows of a register can be sorted by, as its columns stand.
enum class RegisterColumn {
  Date,
  Payee,
  Category,
  Payment,
  Reference,
  Description,
  Status,
  PaidOut,
  PaidIn,
  Balance,
  Account
};

// The rows in that order: cells without a text or a figure first, figures by value, texts without
// regard to case; rows that are alike stand by day. Names are few, so each is compared once, and
// the rows by its rank. Reads what it needs; throws StoreError.
[[nodiscard]] std::vector<std::uint32_t> SortedRegister(RegisterRows& rows, RegisterColumn column,
                                                        bool isDescending);

}  // namespace corvanta::inline ledger
