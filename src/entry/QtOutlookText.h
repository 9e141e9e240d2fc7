#pragma once

#include <QString>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline entry {

struct ScheduleOutlook;

inline constexpr int kOutlookLines = 3;
// What lies ahead of a schedule in words, in kOutlookLines at most.
[[nodiscard]] QString OutlookText(const ScheduleOutlook& outlook, const Locale& locale);

}  // namespace corvanta::inline entry
