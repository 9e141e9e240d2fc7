#include "entry/ScheduleOutlook.h"

#include <algorithm>

namespace corvanta::inline entry {

ScheduleOutlook LookAhead(const std::vector<Date>& dates, const std::vector<Date>& open, int number,
                          Date today, std::size_t shown) {
  ScheduleOutlook outlook;
  const auto first = std::ranges::lower_bound(open, today);
  const auto left = static_cast<std::size_t>(open.end() - first);
  outlook.posted = dates.size() - open.size();
  outlook.overdue.assign(open.begin(), first);
  outlook.next.assign(first, first + static_cast<std::ptrdiff_t>(std::min(left, shown)));
  outlook.goesOn = left > shown;
  // What happens once has a single date without being counted.
  outlook.payments = number == 0 && dates.size() == 1 ? 1 : static_cast<std::size_t>(number);
  if (!dates.empty() && outlook.payments == dates.size()) outlook.last = dates.back();
  return outlook;
}

}  // namespace corvanta::inline entry
