#pragma once

#include "ledger/Keys.h"
#include "ledger/LedgerCore.h"
#include "ledger/transactions/TransactionStatus.h"

#include <cstdint>
#include <optional>
#include <span>

namespace corvanta::inline platform {
class Progress;
}

namespace corvanta::inline ledger {

// What a bank statement says of a row.
struct Settlement {
  std::int64_t transactionId = 0;
  bool isTicked = false;  // the statement has it
};

// The commands of the register's pop-up menu.
enum class StatusCommand { Uncleared, Cleared, Reconciled };

// The status of transactions.
class StatusBook {
 public:
  explicit StatusBook(LedgerCore& core) : core_(core) {}

  // Sets BankRec (where setRec) and then BankChk (where setChk) of a row and its lines to value.
  void SetStatus(std::int64_t transactionId, std::int16_t value, std::int16_t setChk,
                 std::int16_t setRec);
  [[nodiscard]] RowMarks MarksOf(std::int64_t transactionId);
  // The command on every row, as one step. `isTicked` says that the command's item is ticked:
  // "&Cleared" and "&Reconciled" then take the status back. False when the person asked to stop,
  // and nothing was changed.
  bool ApplyStatus(StatusCommand command, Keys transactionIds, bool isTicked);
  // Settles rows by a statement, as one step: a ticked row and its lines become reconciled, one
  // that is not ticked uncleared, unless it is cleared. False when the person asked `progress` to
  // stop, and nothing was settled.
  bool Settle(std::span<const Settlement> rows, Progress& progress);
  void ApplyStatus(StatusCommand command, std::int64_t transactionId, bool isTicked);
  void Settle(const Settlement& row);

 private:
  // Of a row of an open account, and of its lines; what is not given stays.
  struct Flags {
    std::optional<int> chk{};
    std::optional<int> rec{};
  };
  void Write(std::int64_t transactionId, const Flags& flags);

  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
