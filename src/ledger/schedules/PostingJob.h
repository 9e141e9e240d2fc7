// What a pass over the schedules has to post.
#pragma once

#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

class PostingRates;
class clsCorvanta;

// What there is to write for one schedule.
struct PostingJob {
  ScheduleDetails schedule;
  std::vector<Date> missing;
  std::vector<Date> passed;  // those that the start moves behind
  // What arrives with each missing one, in the currency of the other account; 0 where it is no
  // transfer.
  std::vector<double> otherAmounts;
};

// The schedules of accounts that are not closed. Throws StoreError.
[[nodiscard]] std::vector<std::int64_t> OpenSchedules(Connection& store);

// What of the schedule is due to be posted by itself and is not; nullopt when that is nothing.
// Throws StoreError.
[[nodiscard]] std::optional<PostingJob> DuePayments(clsCorvanta& ledger, std::int64_t scheduleId,
                                                    bool movesDates);

// Asks where they are more than a person would expect.
[[nodiscard]] bool IsAgreed(const std::vector<PostingJob>& jobs, Platform& platform);

// Finds what arrives with each payment. Those without a rate are taken out, and the start stays
// before them; returns how many they are. Fetching takes its time: nothing may be being written.
[[nodiscard]] std::size_t FetchRates(PostingJob& job, PostingRates& rates);

}  // namespace corvanta::inline ledger
