#pragma once

#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <functional>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// The schedule goes on after these payments, its first ones, which are posted or skipped. What
// remains is counted from the new start; after the last payment it is finished. Throws StoreError.
void MoveStartBehind(Connection& store, const ScheduleDetails& schedule,
                     const std::vector<Date>& passed);

// The first payments of the schedule, as far as each of them is made.
[[nodiscard]] std::vector<Date> FirstPayments(const ScheduleDetails& schedule,
                                              const std::function<bool(Date)>& isMade);

}  // namespace corvanta::inline ledger
