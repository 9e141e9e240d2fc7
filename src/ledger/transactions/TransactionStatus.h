#pragma once

#include <string_view>

namespace corvanta::inline ledger {

// Whether a bank statement has confirmed a transaction; the numbers are the codes by which a status
// is picked from a list.
enum class TransactionStatus { Uncleared = 0, Cleared = 1, Reconciled = 2 };

// The two columns that hold a status.
struct StatusFlags {
  int bankChk = 0;
  int bankRec = 0;

  bool operator==(const StatusFlags&) const = default;
};

[[nodiscard]] StatusFlags FlagsOf(TransactionStatus status);
// The status that filters and status columns see: a row whose BankRec is 1 is reconciled whatever
// BankChk holds.
[[nodiscard]] TransactionStatus StatusFrom(StatusFlags flags);
// "BankChk = 1, BankRec = 0": what an UPDATE sets.
[[nodiscard]] std::string_view StatusAssignment(TransactionStatus status);

// What the status commands and the register's pop-up menu need to know of a row.
struct RowMarks {
  StatusFlags flags;
  bool isUncleared = false;  // which of the three items is ticked; none for the flags 0/1
  bool isCleared = false;
  bool isReconciled = false;
  long long scheduleId = 0;  // not 0: the row was posted from this schedule
  long long transferId = 0;  // not 0: the other half
};

}  // namespace corvanta::inline ledger
