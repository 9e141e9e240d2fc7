#pragma once

#include "ledger/TransactionStatus.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace corvanta {

enum class EntryType { None, Expense, Income, Transfer };

// "Expense", "Income" or "Transfer"; empty for None.
[[nodiscard]] const char* TextOf(EntryType type);
// What the unsigned amount is multiplied by: 1 for an income, -1 for an expense and the From half
// of a transfer, 0 without a type.
[[nodiscard]] int SignOf(EntryType type);

// What an amount of one currency has become in another; unsigned.
struct Arrival {
  double amount = 0;
  double amountTo = 0;
  std::string from;  // the currencies' codes
  std::string to;
};

// A transaction as its editor shows it. Names are typed or picked. A transfer reads from its From
// half to its To half, whichever of the two is edited.
struct TransactionForm {
  std::int64_t transactionId = 0;  // 0 for a new row
  EntryType type = EntryType::None;
  std::int64_t accountId = 0;    // 0 not chosen; of a transfer: From
  std::int64_t accountToId = 0;  // of a transfer
  std::string payee;             // not of a transfer
  std::string payment;
  std::string category;
  std::string subCategory;           // empty for none
  std::optional<double> amount = 0;  // unsigned, in accountId's currency; nullopt is no number
  Date date;
  std::string reference;
  std::string description;
  TransactionStatus status = TransactionStatus::Uncleared;

  [[nodiscard]] bool IsTransfer() const { return type == EntryType::Transfer; }

  // Of a transfer between currencies: what arrives, as the person says it; unsigned, in
  // accountToId's currency. nullopt to have it worked out.
  std::optional<double> amountTo;
  // What arrived for an amount, as the transfer was loaded or looked up: no rate is needed while
  // the amount and the two currencies stay.
  std::optional<Arrival> arrival;

  // As it was loaded.
  bool hasLines = false;
  std::size_t lines = 0;        // into how many it is split
  bool isToHalf = false;        // the row that is edited is the To half of its transfer
  std::int64_t transferId = 0;  // the half of the transfer that is not edited
  std::int64_t scheduleId = 0;  // the schedule that posted the row
};

}  // namespace corvanta
