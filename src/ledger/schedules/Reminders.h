#pragma once

#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

class clsCorvanta;

// One due payment as the reminders show it. A transfer stands there twice, once for each account.
struct Reminder {
  std::int64_t scheduleId = 0;
  Date due;   // the payment, as it is posted or skipped
  Date date;  // when it is booked: due, or the working day beside it
  std::string account;
  std::string currency;  // of the amount
  std::string payee;     // of a transfer: the other account
  std::string description;
  std::string periodName;          // how often, such as "Monthly"
  double amount = 0;               // signed as in that account
  bool isReceiving = false;        // the receiving account of a transfer
  bool needsRate = false;          // in the other account's currency until it is posted
  bool waitsForRate = false;       // would have been posted by itself, had there been a rate
  std::int64_t transactionId = 0;  // the row once it is posted and not yet cleared, otherwise 0
  std::size_t uncleared = 0;       // of a posted overdue one: how many of its kind there are

  [[nodiscard]] bool IsPosted() const { return transactionId != 0; }
};

// Each group by the day it is booked, ties by schedule.
struct ReminderList {
  std::vector<Reminder> overdue;  // "Overdue Items": due before today
  std::vector<Reminder> future;   // "Future Items": due today or later
  std::size_t dueCount = 0;       // payments that wait to be posted, due today or before

  [[nodiscard]] bool IsEmpty() const { return overdue.empty() && future.empty(); }
};

// What is due up to and with `until` (nullopt: up to today) and not posted, and what is posted but
// not cleared. Nothing of closed accounts. Of posted payments that are overdue only the oldest of
// each schedule is named; without `withOverdue` nothing that is overdue is there or counted.
[[nodiscard]] ReminderList Reminders(clsCorvanta& ledger, Date today, std::optional<Date> until,
                                     bool withOverdue = true);

}  // namespace corvanta::inline ledger
