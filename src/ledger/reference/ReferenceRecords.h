// The named things that transactions point to, each as its editor reads and saves it. Keys are 0
// for a new row.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline ledger {

struct AccountRecord {
  std::int64_t accountId = 0;
  std::string account;
  std::string accountNo;
  std::int64_t accountTypeId = 0;
  std::int64_t bankId = 0;    // 0 for none
  double openingBalance = 0;  // in the account's currency
  std::int64_t currencyId = 0;
  std::string description;
  bool closed = false;
};

struct AccountGroupRecord {
  std::int64_t accountTypeId = 0;
  std::string accountType;
  std::string description;
};

struct BankRecord {
  std::int64_t bankId = 0;
  std::string bank;
  std::string address;
  std::string postcode;
  std::string telephone;
  std::string account;  // the user's customer reference at the bank
  std::string sortcode;
  std::string web;
  std::string description;
};

struct CategoryRecord {
  std::int64_t categoryId = 0;
  std::string category;
  std::string subCategory;  // empty for a main category
  int type = -1;            // 1 income, -1 expense
  double budget = 0;        // per period
  std::int64_t periodId = 0;
  std::string description;
};

struct PayeeRecord {
  std::int64_t payeeId = 0;
  std::string payee;
  std::string description;
};

struct PaymentRecord {
  std::int64_t paymentId = 0;
  std::string payment;
  std::string description;
};

struct KeywordRecord {
  std::int64_t keywordId = 0;
  std::string keyword;
};

struct CurrencyRecord {
  std::int64_t currencyId = 0;
  std::string currency;  // the code
  std::string description;
};

struct PeriodRecord {
  std::int64_t periodId = 0;
  std::string period;       // the interval code, such as "2ww"
  std::string description;  // the name shown
};

struct AttachmentRecord {
  std::int64_t attachmentId = 0;
  std::int64_t transactionId = 0;
  std::string file;   // the name shown
  std::string path;   // where it was attached from
  std::string store;  // where it is kept, empty for where it was attached from
};

// What became of a category that was to be deleted, with its sub-categories.
struct CategoryDeletion {
  int deleted = 0;                   // rows that are gone
  std::vector<CategoryRecord> kept;  // rows that are still in use
};

// How many rows an account has.
struct AccountUse {
  std::int64_t transactions = 0;  // split lines included
  std::int64_t schedules = 0;     // also those of other accounts that transfer into it

  [[nodiscard]] bool IsUsed() const { return transactions > 0 || schedules > 0; }
};

// A text that is to go into a column.
struct NewText {
  std::string_view column;
  std::string_view text;
};

// Why it does not fit, in words for a person.
struct TextProblem {
  std::string column;
  std::string text;
};

}  // namespace corvanta::inline ledger
