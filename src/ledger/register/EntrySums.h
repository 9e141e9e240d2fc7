// What the entries of accounts come to. The data file keeps it by month and status (see
// store/datafile/schema/KeptSums.h), so that a sum of any length reads a few rows; where it does
// not, the entries are added up. Both come to the same but for the noise of adding up decimal
// fractions, which is far below a cent.
#pragma once

#include "ledger/accounts/AccountRow.h"
#include "ledger/register/StatusFilter.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

using SumsByAccount = std::unordered_map<std::int64_t, EntrySums>;

// What the account's shown rows of these days come to; all of them without a first or last day.
// Throws StoreError, as all of these.
[[nodiscard]] EntrySums ReadSums(Connection& store, std::int64_t accountId,
                                 const StatusFilter& filter, const std::optional<Date>& from,
                                 const std::optional<Date>& to);
// Of every account that has entries, as the tree counts them.
[[nodiscard]] SumsByAccount ReadAllSums(Connection& store, const TreeOptions& options);
// As BalanceBook::UnclearedCount.
[[nodiscard]] std::int64_t UnclearedCount(Connection& store, std::int64_t accountId);

// The same without what the file keeps, for whoever compares.
[[nodiscard]] EntrySums AddUp(Connection& store, std::int64_t accountId, const StatusFilter& filter,
                              const std::optional<Date>& from, const std::optional<Date>& to);

}  // namespace corvanta::inline ledger
