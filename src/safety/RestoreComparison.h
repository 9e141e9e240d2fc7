#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline safety {

// An account as one of two data files has it. Rows are whole entries, without split lines; the
// balance is of all of them and in the account's currency.
struct AccountState {
  std::string account;
  std::string currency;  // the code
  std::size_t rows = 0;
  double balance = 0;
  std::optional<Date> from;  // of the first and the last row; nullopt without rows
  std::optional<Date> to;

  [[nodiscard]] bool operator==(const AccountState& other) const = default;
};

// What would become of one account.
struct AccountChange {
  std::optional<AccountState> now;   // nullopt for one that is not there now
  std::optional<AccountState> then;  // and for one that would not be there
  std::size_t added = 0;             // rows that come back
  std::size_t removed = 0;           // rows that go
  std::size_t changed = 0;           // rows that read otherwise then, or in other lines

  [[nodiscard]] bool IsChange() const { return now != then || added + removed + changed > 0; }
  [[nodiscard]] const std::string& Name() const { return now ? now->account : then->account; }
};

// Compares the data file in use with the one that would take its place, account by account, in the
// order of their names. Without a file in use every row comes back. Both are only read. Throws
// StoreError.
[[nodiscard]] std::vector<AccountChange> CompareFiles(Connection* now, Connection& then);

}  // namespace corvanta::inline safety
