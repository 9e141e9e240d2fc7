#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>

namespace corvanta::inline ledger {

// A line of the register.
struct RegisterRow {
  std::int64_t transactionId = 0;
  Date date;
  std::string payee;     // of a transfer: the other account
  std::string category;  // "Category" or "Category:SubCategory"
  std::string payment;
  std::string reference;
  std::string description;
  std::string status;  // "", "C" or "R"
  double amount = 0;   // in the account's currency, signed
  double balance = 0;  // after this row
  bool isSplit = false;
  bool isTransfer = false;
  std::int64_t scheduleId = 0;  // 0 for a row entered by hand
  bool hasAttachment = false;
  std::string keywords;     // by name, with commas between them
  std::int64_t action = 0;  // investment action, 0 for an ordinary row
  double shares = 0;        // that an investment action moves
  double price = 0;         // of one of them
};

}  // namespace corvanta::inline ledger
