#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace corvanta::inline entry {

// What a person sees of a schedule's payments ahead of time.
struct ScheduleOutlook {
  std::vector<Date> overdue;  // due before today and not posted
  std::vector<Date> next;     // the first ones from today on that are not posted
  bool goesOn = false;        // more come behind those
  std::size_t posted = 0;
  std::size_t payments = 0;  // 0 without end
  std::optional<Date> last;  // unset without end, and where it is too far off
};

// `dates` are the schedule's due dates in their order, cut off where they are many, `open` those of
// them that are not posted; `number` is its number of payments, 0 for without end; `shown` how many
// `next` takes.
[[nodiscard]] ScheduleOutlook LookAhead(const std::vector<Date>& dates,
                                        const std::vector<Date>& open, int number, Date today,
                                        std::size_t shown);

}  // namespace corvanta::inline entry
