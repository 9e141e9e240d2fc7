#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace corvanta {

// What a person sees of a schedule's payments ahead of time.
struct ScheduleOutlook {
  std::vector<Date> next;    // the first ones from today on
  bool goesOn = false;       // more come behind those
  std::size_t before = 0;    // due before today
  std::size_t payments = 0;  // 0 without end
  std::optional<Date> last;  // unset without end, and where it is too far off
};

// `dates` are the schedule's due dates in their order, cut off where they are many; `number` is its
// number of payments, 0 for without end; `shown` how many of them `next` takes.
[[nodiscard]] ScheduleOutlook LookAhead(const std::vector<Date>& dates, int number, Date today,
                                        std::size_t shown);

}  // namespace corvanta
