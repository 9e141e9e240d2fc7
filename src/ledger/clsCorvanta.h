#pragma once

#include <memory>

namespace corvanta::inline sql {
class Connection;
class UndoLog;
}  // namespace corvanta::inline sql

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {

class AccountBook;
class BalanceBook;
class BulkEditor;
class CategoryBook;
class InvestmentBook;
class KeywordBook;
class PriceBook;
class RateBook;
class ReferenceBook;
class ScheduleBook;
class StatusBook;
class TransactionBook;
class TransactionPaste;
class TransferLinking;

// The ledger on one open data file: the one door to its rows. Each topic has a class of its own, in
// a header of its name; whoever needs one topic includes that one.
//
// Operations throw StoreError. An operation that changes several rows of one structure changes all
// of them or none, and each is one step that can be undone, unless its caller has begun a wider
// one. Keys are 0 for none; a key that does not exist changes nothing.
class clsCorvanta {
 public:
  clsCorvanta(Connection& connection, Platform& platform);
  ~clsCorvanta();
  clsCorvanta(const clsCorvanta&) = delete;
  clsCorvanta& operator=(const clsCorvanta&) = delete;

  [[nodiscard]] Connection& Store();
  // Keeps nothing until it is started.
  [[nodiscard]] UndoLog& Undo();

  [[nodiscard]] TransactionBook& Transactions();
  [[nodiscard]] BulkEditor& BulkEdits();
  [[nodiscard]] TransactionPaste& Copies();
  [[nodiscard]] StatusBook& Statuses();
  [[nodiscard]] TransferLinking& Transfers();
  [[nodiscard]] ScheduleBook& Schedules();
  [[nodiscard]] KeywordBook& Notes();
  [[nodiscard]] BalanceBook& Balances();
  [[nodiscard]] AccountBook& Accounts();
  [[nodiscard]] InvestmentBook& Investments();
  [[nodiscard]] PriceBook& Prices();
  [[nodiscard]] RateBook& Rates();
  [[nodiscard]] CategoryBook& Categories();
  [[nodiscard]] ReferenceBook& References();

 private:
  struct Topics;
  std::unique_ptr<Topics> topics_;
};

}  // namespace corvanta::inline ledger
