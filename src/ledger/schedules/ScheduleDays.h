#pragma once

#include "ledger/schedules/DayRule.h"

#include <cstdint>
#include <unordered_map>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// The day rules of schedules that have any, by their keys. They stand in a table of their own that
// the catalog does not show (see Connection::TableNames). A file opened for reading alone may lack
// it: it has no rules then.
using DayRules = std::unordered_map<std::int64_t, DayRule>;

// Those of one schedule, or for 0 of all. Throws StoreError.
[[nodiscard]] DayRules ReadDayRules(Connection& store, std::int64_t scheduleId = 0);
// A plain rule leaves no row. Throws StoreError.
void WriteDayRule(Connection& store, std::int64_t scheduleId, const DayRule& rule);

}  // namespace corvanta::inline ledger
