#pragma once

#include "ledger/schedules/DayRule.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {

// Whether a schedule posts by itself; the numbers are those of the column.
enum class AddToAccount {
  No = 0,       // its due occurrences stand in the reminders
  Ahead = 1,    // every occurrence up to the look-ahead date
  WhenDue = 2,  // those due up to today
};

// One recurring transaction, or one split line of it, as it is saved. Keys are 0 for none.
struct ScheduleRecord {
  std::int64_t scheduleId = 0;  // 0 for a new one
  std::int64_t accountId = 0;
  std::int64_t categoryId = 0;
  std::int64_t paymentId = 0;
  std::int64_t payeeId = 0;
  std::int64_t periodId = 0;           // frequency
  std::int64_t transferAccountId = 0;  // the receiving account of a transfer
  double amount = 0;                   // in the account's currency, money out negative
  std::string reference;
  std::string description;
  Date dateFrom;    // the first, or the next, due date
  int noTimes = 0;  // payments from dateFrom on; 0 without end, below 0 finished
  AddToAccount addToAccount = AddToAccount::No;
  std::int64_t allocatedItem = 0;  // of a split line: its parent
  DayRule days{};

  bool operator==(const ScheduleRecord&) const = default;
};

// A schedule with the names of what it points to, and where it stands.
struct ScheduleDetails : ScheduleRecord {
  std::string account;
  std::string currency;
  bool accountClosed = false;
  std::string transferAccount;
  std::string transferCurrency;
  bool transferAccountClosed = false;
  std::string category;
  std::string subCategory;
  std::string payee;
  std::string payment;
  std::string period;      // the interval code, such as "2ww"
  std::string periodName;  // its description, such as "Fortnightly"
  bool hasLines = false;
  int posted = 0;               // rows posted of the payments from dateFrom on
  bool isFinished = false;      // the last payment is posted or skipped
  std::optional<Date> nextDue;  // the first payment that is not posted; only Schedules() fills it
  // Up to and with this day the posting pass posts its payments by itself; unset: none of them.
  std::optional<Date> automaticUntil;

  [[nodiscard]] bool IsTransfer() const { return transferAccountId != 0; }
  // What arrives is known only with an exchange rate.
  [[nodiscard]] bool NeedsRate() const {
    return IsTransfer() && !currency.empty() && !transferCurrency.empty() &&
           currency != transferCurrency;
  }
  // Of a payment that is not posted: the pass would have, had there been a rate.
  [[nodiscard]] bool WaitsForRate(Date due) const {
    return NeedsRate() && automaticUntil && days.BookedOn(due) <= *automaticUntil;
  }
};

}  // namespace corvanta::inline ledger
