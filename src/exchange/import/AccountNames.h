#pragma once

#include "exchange/import/ImportRecord.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline exchange {

// An account that records can go into.
struct ImportTarget {
  std::int64_t accountId = 0;
  std::int64_t currencyId = 0;
  std::string currency;  // its code; empty for an unknown one
  std::string name;
  bool isClosed = false;
  bool isNew = false;  // made for this file
};

// Two names, or two numbers, of one thing have one key: case and the blanks around them do not
// count, nor the blanks and dashes by which some banks group an account number.
[[nodiscard]] std::string NameKey(std::string_view name);
[[nodiscard]] std::string NumberKey(std::string_view number);

// The accounts of the ledger by key, name and number, read once.
class AccountNames {
 public:
  explicit AccountNames(Connection& store);

  // The account of that key; nullptr when there is none. Pointers stay valid.
  [[nodiscard]] const ImportTarget* Get(std::int64_t accountId) const;
  // By number where the file gives one, else by name; nullptr when there is none.
  [[nodiscard]] const ImportTarget* Find(const ImportAccount& account) const;
  const ImportTarget* Add(ImportTarget target, const std::string& number);
  void AddNumber(std::int64_t accountId, const std::string& number);

 private:
  using Keys = std::unordered_map<std::string, std::int64_t>;

  std::unordered_map<std::int64_t, ImportTarget> accounts_;
  Keys names_;
  Keys numbers_;
};

}  // namespace corvanta::inline exchange
