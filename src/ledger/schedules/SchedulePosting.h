#pragma once

#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {

class RateSource;
class clsCorvanta;

// What became of a pass.
struct PostingResult {
  std::size_t schedules = 0;    // looked at
  std::size_t occurrences = 0;  // posted
  std::size_t waiting = 0;      // not posted, because there is no exchange rate for them
  bool declined = false;        // the person did not want so many: nothing was posted
  bool stopped = false;         // the person asked to stop: nothing was posted
};

// What became of one occurrence that a person chose.
enum class OccurrenceResult {
  Done,
  NotDue,  // the schedule has no such date, or is gone
  AlreadyPosted,
  ClosedAccount,   // the schedule's account or the receiving one is closed, or gone
  NoRate,          // a transfer into another currency; the person has been told
  EarlierPending,  // skipping it would lose an earlier one that is neither posted nor skipped
};

// Turns the occurrences of schedules into transactions.
//
// Each occurrence is posted once: the row carries the schedule and the due date. A transfer's other
// half carries the schedule alone. A pass is whole: it posts all that is due, or nothing when it
// fails or is stopped, except that a schedule which the data file refuses is told and left out.
// Rates are fetched before anything is written; an occurrence without one is not posted and stays
// pending, and the person is told once a pass. Before a pass posts more than a few hundred
// occurrences it asks. With the setting "UpdateSchedule" a schedule's start moves behind what is
// posted.
//
// Operations throw StoreError and are one step that can be undone each.
class SchedulePosting {
 public:
  SchedulePosting(clsCorvanta& ledger, Platform& platform, RateSource& rates);
  ~SchedulePosting();
  SchedulePosting(const SchedulePosting&) = delete;
  SchedulePosting& operator=(const SchedulePosting&) = delete;

  // The pass over all schedules of open accounts, as the setting "NoShedule" has it. Shows its
  // progress.
  PostingResult PostSchedules();
  // Posts one occurrence, whatever the schedule's choice of automatic posting.
  OccurrenceResult PostOccurrence(std::int64_t scheduleId, Date due);
  // The occurrence will never be posted: the schedule starts behind it from now on.
  OccurrenceResult SkipOccurrence(std::int64_t scheduleId, Date due);

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvanta::inline ledger
