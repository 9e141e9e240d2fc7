#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/schedules/ScheduleRecord.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace corvanta::inline ledger {

// Reading schedules.
class ScheduleReader {
 public:
  explicit ScheduleReader(LedgerCore& core) : core_(core) {}

  [[nodiscard]] std::optional<ScheduleDetails> ReadSchedule(std::int64_t scheduleId);
  // Without split lines, by next due date; finished ones last.
  [[nodiscard]] std::vector<ScheduleDetails> Schedules();
  // The lines of a split schedule in order of their keys.
  [[nodiscard]] std::vector<ScheduleDetails> ScheduleLines(std::int64_t scheduleId);
  // See ScheduleDates().
  [[nodiscard]] std::vector<Date> DueDates(std::int64_t scheduleId, std::optional<Date> end);

 protected:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
