#pragma once

#include "ledger/schedules/SchedulePosting.h"

#include <string>

namespace corvanta::inline ledger {

// Why a payment that a person chose was neither posted nor skipped, in words; empty when it was.
// `day` is its due day as the person reads days.
[[nodiscard]] std::string OccurrenceFault(OccurrenceResult result, const std::string& day);

}  // namespace corvanta::inline ledger
