// What has been posted from schedules, as reading, posting and reminders need to know it.
#pragma once

#include "ledger/schedules/ScheduleDates.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// The occurrences of one schedule that have a row.
class PostedRows {
 public:
  void Add(std::int64_t accountId, std::optional<Date> due);
  // Whether the occurrence has a row, in whatever account that is by now.
  [[nodiscard]] bool Has(Date due) const;
  [[nodiscard]] bool IsEmpty() const { return rows_.empty(); }
  // The first due date behind that day which has a row.
  [[nodiscard]] std::optional<Date> FirstAfter(Date day) const;
  // The last one of all.
  [[nodiscard]] std::optional<Date> Last() const;
  // How many there are from that due date on.
  [[nodiscard]] int CountFrom(Date due) const;
  // The rows in the schedule's account of payments from its start on: what counts towards the
  // number of payments.
  [[nodiscard]] int CountFor(const ScheduleRecord& schedule) const;

 private:
  struct Row {
    Date due;
    std::int64_t accountId = 0;
  };
  std::vector<Row> rows_;  // by due date
};

using PostedBySchedule = std::unordered_map<std::int64_t, PostedRows>;

[[nodiscard]] PostedRows PostedOf(Connection& store, std::int64_t scheduleId);
[[nodiscard]] PostedBySchedule PostedOfAll(Connection& store);

[[nodiscard]] SchedulePlan PlanOf(const ScheduleDetails& schedule);
// Whether its account, and of a transfer the receiving one, is there and takes rows.
[[nodiscard]] bool HasOpenAccounts(const ScheduleDetails& schedule);
// Of a schedule whose posted rows have been counted.
[[nodiscard]] bool IsFinished(const ScheduleDetails& schedule);
// Why it posts nothing, or not its next payment, as words for a person: an account that is closed
// or gone, a rate that is missing. Empty where nothing is in the way. Of a schedule with its next
// due date.
[[nodiscard]] std::string HindranceOf(const ScheduleDetails& schedule);
// Its payments from the start up to and with that day, in order, posted or not; none of a schedule
// that is marked as finished.
[[nodiscard]] std::vector<Date> PaymentsUntil(const ScheduleDetails& schedule, Date last);
// The due dates of those that are booked up to and with that day.
[[nodiscard]] std::vector<Date> PaymentsBookedUntil(const ScheduleDetails& schedule, Date last);

}  // namespace corvanta::inline ledger
