#pragma once

#include "ledger/register/RegisterNames.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// What of a transaction or a split line is looked through. Keys are 0 for none.
struct SearchRow {
  std::int32_t key = 0;
  std::int32_t accountId = 0;
  std::int32_t parent = 0;  // of a split line: its transaction
  std::int32_t payeeId = 0;
  std::int32_t categoryId = 0;
  std::int32_t twin = 0;  // the other half of a transfer
  std::int32_t day = 0;   // as Date::Serial
  double amount = 0;      // in the account's currency, signed
  std::size_t text = 0;   // where its texts begin
};

// An account as it is named beside what was found in it.
struct SearchAccount {
  std::int64_t accountId = 0;
  std::string account;
  std::int64_t currencyId = 0;
  std::string currency;  // the code
};

// All transactions and split lines of a data file, held so that a search among a million of them
// takes no longer than a keystroke. It is read once, a piece at a time, and is of the data as they
// were when it was made. Reading throws StoreError.
class SearchIndex {
 public:
  explicit SearchIndex(Connection& store);

  // Whether the data are still the same.
  [[nodiscard]] bool IsCurrent() const;
  [[nodiscard]] bool IsWhole() const { return isWhole_; }
  // Reads on by about so many rows.
  void ReadOn(std::size_t rows);
  void ReadAll();

  // In the order of their keys; the rest of this once the index is whole.
  [[nodiscard]] const std::vector<SearchRow>& Rows() const { return rows_; }
  // The places of whole transactions (no split lines) by day, those of a day by key.
  [[nodiscard]] const std::vector<std::uint32_t>& ByDay() const { return byDay_; }
  static constexpr std::uint32_t kNowhere = 0xffffffffU;
  // The place of the row of that key; kNowhere where there is none.
  [[nodiscard]] std::uint32_t PlaceOf(std::int64_t key) const;
  // Folded: the description, a zero byte, the reference.
  [[nodiscard]] std::string_view TextOf(std::size_t place) const;
  [[nodiscard]] const RegisterNames& Names() const { return names_; }
  [[nodiscard]] const std::vector<SearchAccount>& Accounts() const { return accounts_; }
  // Null where there is none of that key.
  [[nodiscard]] const SearchAccount* Account(std::int64_t accountId) const;
  [[nodiscard]] Connection& Store() const { return store_; }

 private:
  void ReadKeys(std::int64_t first, std::int64_t last);
  void AddTexts(std::string_view description, std::string_view reference);
  void AddFolded(std::string_view text);
  void PutInOrder();

  Connection& store_;
  std::uint64_t stamp_;
  std::int64_t next_ = 0;  // the key to be read next
  std::int64_t last_ = 0;  // the last key there is
  bool isWhole_ = false;
  std::vector<SearchRow> rows_;
  std::string texts_;
  std::vector<std::uint32_t> byDay_;
  RegisterNames names_;
  std::vector<SearchAccount> accounts_;
};

}  // namespace corvanta::inline ledger
