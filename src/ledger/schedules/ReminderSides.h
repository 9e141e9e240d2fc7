#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// One side of a schedule that may stand in the reminders: its own account's, or of a transfer the
// receiving account's.
struct ReminderSide {
  std::int64_t scheduleId = 0;
  Date from;           // the schedule's start
  std::string period;  // how often, such as "Monthly"
  std::string payee;
  double amount = 0;  // of the schedule's own account, money out negative
  std::string description;
  std::int64_t transferAccountId = 0;  // 0 for none
  bool isReceiving = false;
};

// The sides of all schedules that begin up to and with that day, in one statement: by their start,
// then by their key, a transfer's own side first. Nothing of closed accounts. Throws StoreError.
[[nodiscard]] std::vector<ReminderSide> ReadReminderSides(Connection& store, Date last);

}  // namespace corvanta::inline ledger
