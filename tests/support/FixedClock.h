#pragma once

#include "platform/Clock.h"

namespace corvanta {

// Stands still at a moment that the test sets; at first 2026-11-21, a Saturday, 10:30:00.
class FixedClock : public Clock {
 public:
  FixedClock() : FixedClock(*DateTime::FromIso("2026-11-21T10:30:00")) {}
  explicit FixedClock(DateTime now) : now_(now) {}

  [[nodiscard]] DateTime Now() const override { return now_; }
  void Set(DateTime now) { now_ = now; }
  void SetToday(Date today) { now_.date = today; }

 private:
  DateTime now_;
};

}  // namespace corvanta
