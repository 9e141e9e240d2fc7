// The days that an axis names.
#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <vector>

namespace corvanta::inline platform {

// Days between these two, both included, that a person can count with: every day, second or
// third day, week or fortnight from the first one on, or the first days of months, quarters and
// years. As many of them as possible, but no more than `most`, which is at least 1.
[[nodiscard]] std::vector<Date> DayMarks(Date first, Date last, std::size_t most);

}  // namespace corvanta::inline platform
