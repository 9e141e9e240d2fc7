#pragma once

#include "ledger/Warning.h"
#include "ledger/accounts/CurrencyOf.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline platform {
class Locale;
class Progress;
}  // namespace corvanta::inline platform

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reconcile {

inline constexpr std::string_view kBalanceAccount = "Balance Account";

// A whole entry of the account that is balanced.
struct ReconcileRow {
  std::int64_t transactionId = 0;
  // "SCHEDULE", "ALLOCATED" (it is split), "TRANSFER" or "BLANK", the first that holds.
  std::string_view image;
  Date date;
  std::string payee;
  std::string category;  // "Category" or "Category:SubCategory"
  std::string reference;
  std::string description;
  std::string status;         // "", "C" or "R"
  double amount = 0;          // in the account's currency, signed
  bool isReconciled = false;  // BankChk and BankRec are both 1
  bool isTicked = false;

  [[nodiscard]] bool IsMoneyOut() const { return amount < 0; }
};

// In the account's currency.
struct ReconcileTotals {
  double initial = 0;      // before the rows shown
  double current = 0;      // with the ticked rows
  double outstanding = 0;  // the rows shown that are not ticked
  std::size_t countIn = 0;
  double paidIn = 0;
  std::size_t countOut = 0;
  double paidOut = 0;  // without sign
};

// The labels as they are shown.
struct ReconcileTexts {
  std::string initial;
  std::string current;
  std::string outstanding;
  std::string paidIn;
  std::string paidOut;
};
[[nodiscard]] ReconcileTexts TextsOf(const ReconcileTotals& totals, const Locale& locale);

// What is missing between a statement's balance and the current one.
struct StatementDifference {
  double amount = 0;        // the statement's balance less the current one
  bool isBalanced = false;  // nothing is missing, to the last digit
  // The amount, with as many decimals as the currency or the locale has, or as it needs.
  [[nodiscard]] std::string Text(const Locale& locale) const;
  int decimals = 2;  // of the currency, or as many as the amount needs
};
[[nodiscard]] StatementDifference DifferenceTo(double statement, const ReconcileTotals& totals,
                                               const std::string& currency);

// What the ticks make of the rows that are shown.
struct ReconcileOutcome {
  std::size_t settled = 0;  // reconciled now, and not before
  std::size_t taken = 0;    // no longer reconciled
};

// Balancing one account against a statement: the rows that no statement has settled yet, which of
// them are ticked, and the totals that follow. Nothing is written before Apply. Operations throw
// StoreError.
class Reconciliation {
 public:
  // `accountId` is 0 when no account is chosen.
  Reconciliation(std::int64_t accountId, clsCorvanta& ledger);

  // Why the account cannot be balanced.
  [[nodiscard]] std::optional<Warning> Check();
  // Why no transaction can be added.
  [[nodiscard]] std::optional<Warning> CheckAdd();

  // What stands above the list, such as "Current Account (GBP)".
  [[nodiscard]] std::string AccountText();
  // The code of the account's currency; empty for an unknown one.
  [[nodiscard]] std::string Currency() { return CurrencyOf(ledger_, accountId_); }

  // Reads the rows that no statement has settled (as at first), or the settled ones too, which come
  // ticked. Ticks of rows that stay in sight are kept. A reading that fails changes nothing.
  void ShowUnreconciled();
  void ShowAll();
  [[nodiscard]] bool IsShowingAll() const { return showAll_; }
  // Reads the rows again, with the ticks as they are. A row that was reconciled meanwhile is
  // ticked, as it would otherwise lose its status.
  void Refill();
  // The order of the days, from the next reading on.
  void SetNewestFirst(bool newestFirst) { newestFirst_ = newestFirst; }

  [[nodiscard]] const std::vector<ReconcileRow>& Rows() const { return rows_; }
  void Tick(std::size_t row, bool isTicked);
  // The place of a transaction among the rows; nullopt when it is not there.
  [[nodiscard]] std::optional<std::size_t> RowOf(std::int64_t transactionId) const;
  // Whether a tick was set or taken that Apply has not written.
  [[nodiscard]] bool IsTicking() const;
  void SelectAll();
  void ClearAll();
  void Invert();

  [[nodiscard]] const ReconcileTotals& Totals() const { return totals_; }
  // Of the rows as they were read: what Apply will do, or has done.
  [[nodiscard]] ReconcileOutcome Outcome() const;

  // Settles all rows by their ticks, as one step. False when `progress` asked to stop: nothing is
  // settled then, nor when a row fails.
  bool Apply(Progress& progress);

 private:
  using Keys = std::unordered_set<std::int64_t>;

  // Reads the rows, with the ticks as they are; reconciled ones come ticked unless suppressed.
  void Fill(bool showAll, bool suppressTicks);
  [[nodiscard]] std::vector<ReconcileRow> ReadRows(bool showAll) const;
  // Of the account's rows that fulfil the condition.
  [[nodiscard]] double SumOf(std::string_view condition) const;
  [[nodiscard]] Keys KeysWhere(bool ReconcileRow::*mark) const;
  void TickEvery(bool isTicked);
  void AddUp();

  std::int64_t accountId_;
  clsCorvanta& ledger_;
  Connection& store_;
  double initialBalance_ = 0;
  double sumOfRows_ = 0;
  bool showAll_ = false;
  bool newestFirst_ = false;
  std::vector<ReconcileRow> rows_;
  ReconcileTotals totals_;
};

}  // namespace corvanta::inline reconcile
