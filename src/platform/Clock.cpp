#include "platform/Clock.h"

#include <ctime>

namespace corvanta::inline platform {

DateTime SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  if (localtime_r(&now, &parts) == nullptr) return {fixed_, 0};
  // A leap second would be the one 60 of its minute.
  const int second = parts.tm_sec < 60 ? parts.tm_sec : 59;
  const int seconds = parts.tm_hour * 3600 + parts.tm_min * 60 + second;
  if (isFixed_) return {fixed_, seconds};
  const auto today = Date::FromYmd(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday);
  return {today.value_or(Date()), seconds};
}

}  // namespace corvanta::inline platform
