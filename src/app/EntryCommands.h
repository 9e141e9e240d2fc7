// Commands that enter and edit transactions and schedules, and balance accounts, from whatever view
// is in front. They show what came of it.
#pragma once

#include "ledger/Keys.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline app {

struct ViewPlace;

inline constexpr const char* kAddItem = "Add Item";

// The full editor on a new transaction, of that day or of today.
void AddTransaction(const ViewPlace& place, std::optional<Date> day = std::nullopt);
// The quick entry.
void AutofillTransaction(const ViewPlace& place);
// The one of the two that the setting says.
void AddQuickly(const ViewPlace& place);
// The full editor on that transaction, or the one for several at once.
void EditTransactions(const ViewPlace& place, Keys keys);
// The editor of schedules; of a new one for 0.
void EditSchedule(const ViewPlace& place, std::int64_t key);
// The account that entries go to, against a statement.
void BalanceAccount(const ViewPlace& place);

}  // namespace corvanta::inline app
