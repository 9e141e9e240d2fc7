// What holdings are made of, as it stands in the data file. All of it throws StoreError.
#pragma once

#include "invest/holdings/HoldingRow.h"
#include "ledger/investments/PriceBook.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline invest {

// The rows of all investments in the account, or in all accounts for 0: those of one account
// together, in it those of one investment, these in the order of days and keys.
[[nodiscard]] std::vector<HoldingRow> ReadHoldingRows(Connection& store, std::int64_t accountId);

struct HoldingAccount {
  std::string account;
  std::int64_t currencyId = 0;
  std::string currency;  // the code; empty for an unknown one
  bool closed = false;
};
// By their keys.
[[nodiscard]] std::unordered_map<std::int64_t, HoldingAccount> ReadHoldingAccounts(
    Connection& store);

struct HoldingName {
  std::string investment;
  std::string symbol;
};
[[nodiscard]] std::unordered_map<std::int64_t, HoldingName> ReadHoldingNames(Connection& store);

// One for each day that has any, in the order of days; of several of one day the one written last.
[[nodiscard]] std::vector<DayPrice> ReadPrices(Connection& store, std::int64_t payeeId);

}  // namespace corvanta::inline invest
