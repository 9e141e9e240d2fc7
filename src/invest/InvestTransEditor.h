#pragma once

#include "ledger/Warning.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline invest {

// The largest total that is saved.
inline constexpr double kLargestTotal = 1e12;

// An investment transaction as its editor shows it; figures without a sign, money in the account's
// currency.
struct InvestTransForm {
  std::int64_t transactionId = 0;      // 0 for a new one
  std::int64_t accountId = 0;          // 0 not chosen
  std::int64_t investmentId = 0;       // 0 not chosen
  std::optional<InvestAction> action;  // nullopt not chosen
  Date date;
  double dividend = 0;
  double shares = 0;
  double price = 0;  // of one share
  double commission = 0;
  double total = 0;
  TransactionStatus status = TransactionStatus::Uncleared;
  std::string description;

  bool operator==(const InvestTransForm&) const = default;
};

// Which figures an action has; the others are 0.
struct InvestFigures {
  bool dividend = true;
  bool shares = true;
  bool price = true;
  bool commission = true;
  bool total = true;
};
// All of them while no action is chosen.
[[nodiscard]] InvestFigures FiguresOf(std::optional<InvestAction> action);

// What the other figures come to, not rounded. A purchase costs its commission on top of the
// shares, a sale and a dividend are lessened by it; of a reinvested dividend it is the money that
// is left of it.
[[nodiscard]] double TotalOf(const InvestTransForm& form);

// The rules behind the editor of investment transactions. Operations throw StoreError.
class InvestTransEditor {
 public:
  InvestTransEditor(clsCorvanta& ledger, Platform& platform)
      : ledger_(ledger), platform_(platform) {}

  // Today's, uncleared, in that account and of that investment (0 for none).
  [[nodiscard]] InvestTransForm New(std::int64_t accountId, std::int64_t investmentId);
  // nullopt when there is no such row, and for one that is no investment transaction.
  [[nodiscard]] std::optional<InvestTransForm> Load(std::int64_t key);
  // Why the editor cannot be opened: without any account, and on a row of a closed one. 0 for a new
  // row; a row that is gone is no reason.
  [[nodiscard]] std::optional<Warning> CheckOpen(std::int64_t key);

  // Sets the action, and to 0 the figures that it has not. A total that was what the figures come
  // to goes on being that; one that was typed stays.
  void ChooseAction(InvestTransForm& form, std::optional<InvestAction> action) const;
  // Sets the total to what the figures come to, with the decimals that figures are shown with.
  void Recalculate(InvestTransForm& form) const;

  // The first rule that is broken, about the control of that name.
  [[nodiscard]] std::optional<Warning> Check(const InvestTransForm& form);
  // Writes what Check accepts, as one step that can be undone; returns the key.
  std::int64_t Save(const InvestTransForm& form);
  // Asks first; tells when a closed account has the row. True when it is gone.
  bool Delete(std::int64_t key);

 private:
  [[nodiscard]] double ShownTotal(const InvestTransForm& form) const;
  [[nodiscard]] std::optional<Warning> CheckRow(std::int64_t key);

  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta::inline invest
