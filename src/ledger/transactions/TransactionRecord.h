#pragma once

#include "ledger/transactions/TransactionStatus.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {

// One row of the ledger as it is saved. Keys are 0 for none.
struct TransactionRecord {
  std::int64_t transactionId = 0;  // 0 for a new row
  std::int64_t accountId = 0;
  std::int64_t categoryId = 0;
  std::int64_t paymentId = 0;
  std::int64_t payeeId = 0;
  double amount = 0;  // in the account's currency, money out negative
  std::string reference;
  std::string description;
  Date date;
  StatusFlags status;
  std::int64_t action = 0;      // investment action, 0 for an ordinary row
  std::int64_t transferId = 0;  // the other half of a transfer
  std::int64_t scheduleId = 0;  // the schedule that posted it
  std::optional<Date> scheduleDate;
  std::int64_t allocatedItem = 0;  // of a split line: its parent
};

// A row with the names of what it points to.
struct TransactionDetails : TransactionRecord {
  std::string account;
  std::string currency;
  bool accountClosed = false;
  std::string category;
  std::string subCategory;
  std::string payee;
  std::string payment;
  std::int64_t twinAccountId = 0;  // of a transfer: the other half's account
  std::string twinAccount;
  bool hasLines = false;
  // Of an investment transaction; amounts in the account's currency.
  double dividend = 0;
  double shares = 0;
  double price = 0;
  double commission = 0;
};

// What is typed of a transaction whose other columns come from an earlier one.
struct AutofillEntry {
  std::int64_t transactionId = 0;  // 0 for a new row
  std::int64_t accountId = 0;
  std::int64_t payeeId = 0;
  std::int64_t categoryId = 0;
  double amount = 0;  // in the account's currency, money out negative
  Date date;
};

}  // namespace corvanta::inline ledger
