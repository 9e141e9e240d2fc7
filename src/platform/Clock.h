#pragma once

#include "platform/Date.h"

namespace corvanta::inline platform {

// The one source of "now": local time of the user.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual DateTime Now() const = 0;
  [[nodiscard]] Date Today() const { return Now().date; }
};

// The machine's own clock, in its local time zone. With a fixed day (the command line's --today)
// it stands at that day and keeps the machine's time of day.
class SystemClock : public Clock {
 public:
  SystemClock() = default;
  explicit SystemClock(Date fixedDay) : fixed_(fixedDay), isFixed_(true) {}
  [[nodiscard]] DateTime Now() const override;

 private:
  Date fixed_;
  bool isFixed_ = false;
};

}  // namespace corvanta::inline platform
