#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvanta {

class Connection;
class Prompts;
struct PeriodTotals;
struct Platform;

// Which statuses a view shows; none chosen shows all, as all chosen does.
struct StatusFilter {
  bool uncleared = true;
  bool cleared = true;
  bool reconciled = true;

  // The filter's condition with "AND " behind it, such as "BankRec = 1 AND ".
  [[nodiscard]] std::string Clause() const;
};

struct Period {
  Date from;
  Date to;  // inclusive
};

// An account as the account tree and the account list show it.
struct AccountRow {
  std::int64_t accountId = 0;
  std::string account;
  std::string accountNo;
  std::int64_t accountTypeId = 0;
  std::string accountType;  // the group's name
  std::int64_t currencyId = 0;
  std::string currency;  // the code; empty for an unknown currency
  std::string bank;
  std::string description;
  double openingBalance = 0;  // in the account's currency, as balance
  double balance = 0;
  bool closed = false;
};

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
  std::int64_t action = 0;  // investment action, 0 for an ordinary row
};

// The ledger on one open data file: the one class that writes its rows.
//
// Operations throw StoreError. An operation that changes several rows of one structure changes all
// of them or none, and each is one step that can be undone, unless its caller has begun a wider
// one. Keys are 0 for none; a key that does not exist changes nothing.
class clsCorvanta {
 public:
  clsCorvanta(Connection& connection, Platform& platform);
  [[nodiscard]] std::vector<AccountRow> Accounts(const StatusFilter& filter, bool includeClosed);
  [[nodiscard]] std::vector<RegisterRow> Register(std::int64_t accountId,
                                                  const StatusFilter& filter,
                                                  const std::optional<Period>& period);
  [[nodiscard]] std::optional<AccountRow> FindAccount(const std::string& nameOrKey);
  [[nodiscard]] Connection& Store() { return connection_; }

 private:
  Connection& connection_;
  Platform& platform_;
};

}  // namespace corvanta
