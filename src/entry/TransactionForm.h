#pragma once

#include "entry/EntryForm.h"
#include "ledger/transactions/TransactionStatus.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline entry {

// What an amount of one currency has become in another; unsigned.
struct Arrival {
  double amount = 0;
  double amountTo = 0;
  std::string from;  // the currencies' codes
  std::string to;

  bool operator==(const Arrival&) const = default;
};

// A transaction as its editor shows it. A transfer reads from its From half to its To half,
// whichever of the two is edited.
struct TransactionForm : EntryForm {
  std::int64_t transactionId = 0;  // 0 for a new row
  Date date;
  TransactionStatus status = TransactionStatus::Uncleared;

  // Of a transfer between currencies: what arrives, as the person says it; unsigned, in
  // accountToId's currency. nullopt to have it worked out.
  std::optional<double> amountTo;
  // What arrived for an amount, as the transfer was loaded or looked up: no rate is needed while
  // the amount and the two currencies stay.
  std::optional<Arrival> arrival;

  // As it was loaded.
  std::size_t lines = 0;        // into how many it is split
  bool isToHalf = false;        // the row that is edited is the To half of its transfer
  std::int64_t transferId = 0;  // the half of the transfer that is not edited
  std::int64_t scheduleId = 0;  // the schedule that posted the row

  bool operator==(const TransactionForm&) const = default;
};

}  // namespace corvanta::inline entry
