#pragma once

#include "platform/Date.h"

namespace corvanta::inline ledger {

// Where a payment goes that is due on a Saturday or Sunday; the numbers are those that are stored.
enum class WeekendRule { Stay = 0, Before = 1, After = 2 };

// What a schedule says about its days besides its period.
struct DayRule {
  bool isMonthEnd = false;  // of periods of months: every payment is due on a month's last day
  WeekendRule weekend = WeekendRule::Stay;

  // The day on which what is due on that one is booked.
  [[nodiscard]] Date BookedOn(Date due) const;
  [[nodiscard]] bool IsPlain() const { return *this == DayRule(); }
  bool operator==(const DayRule&) const = default;
};

[[nodiscard]] Date LastOfMonth(Date day);

}  // namespace corvanta::inline ledger
