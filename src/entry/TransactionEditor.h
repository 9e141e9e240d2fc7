#pragma once

#include "entry/EntryEditor.h"
#include "entry/StoredRow.h"
#include "entry/StoredTransaction.h"
#include "entry/TransactionForm.h"
#include "ledger/Warning.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {
class RateSource;
}

namespace corvanta::inline entry {

// What a payee's last transaction in an account suggests for the next one.
struct Proposal {
  EntryType type = EntryType::Expense;
  std::string payment;
  std::string category;
  std::string subCategory;
  double amount = 0;  // unsigned
};

// The rules behind the editor of ordinary transactions.
class TransactionEditor : public EntryEditor {
 public:
  TransactionEditor(clsCorvanta& ledger, Platform& platform, RateSource& rates)
      : EntryEditor(ledger, platform), rates_(rates) {}

  // A new expense of today, uncleared, in that account (0 for none).
  [[nodiscard]] TransactionForm New(std::int64_t accountId);
  // The row as the editor shows it. A split line shows the transaction that it is a line of.
  // nullopt when there is no such row, and for an investment transaction.
  [[nodiscard]] std::optional<TransactionForm> Load(std::int64_t key);
  // Whether the row is one that the editor of investment transactions is for.
  [[nodiscard]] bool IsOfInvestment(std::int64_t key);
  // Why an existing row cannot be edited here: it is an investment transaction, or a closed account
  // holds it or its other half. nullopt for a row that can, and for one that is gone.
  [[nodiscard]] std::optional<Warning> CheckOpen(std::int64_t key);

  // Sets the type, and with it what hangs on it: a transfer without a category is of the category
  // "Credit"; a form that ceases to be a transfer loses that category again, and where its row is
  // the To half it goes on with that half's account and amount. Show the whole form again.
  static void ChooseType(TransactionForm& form, EntryType type);
  // What the payee's last ordinary transaction in the account suggests; nullopt without one.
  [[nodiscard]] std::optional<Proposal> Propose(std::int64_t accountId, const std::string& payee);
  // Whether the form is a transfer into another currency, so that what arrives is another amount.
  [[nodiscard]] bool IsConverted(const TransactionForm& form);
  // What arrives as far as it is known without a rate: what the person says, what has arrived
  // where the amount is the same, and otherwise the amount at that former rate. nullopt for a new
  // transfer.
  [[nodiscard]] std::optional<double> KnownArrival(const TransactionForm& form);

  // The first rule that is broken, about the control of that name.
  [[nodiscard]] std::optional<Warning> Check(TransactionForm form);
  // Writes what Check accepts, with names that are new, as one step that can be undone; returns the
  // key. Asks before it makes a category, and before a split transaction becomes a transfer and
  // loses its lines: when the person declines, nothing is written, the key is 0, and
  // DeclinedField() names the control to go back to. A split transaction keeps the sum of its lines
  // as its amount, and tells so when another one was typed; the lines change their sign with the
  // type. What arrives of a transfer between currencies is what the person says, or what has
  // arrived while the amount stays; otherwise its rate is fetched first. Without one that is told,
  // and the former rate goes on, or the same amount arrives where there was none. The half that is
  // not edited keeps its own status, and what else it had of its own.
  std::int64_t Save(TransactionForm form);
  // Asks, then deletes the row with its lines and its other half. True when it is gone.
  bool Delete(std::int64_t key);

 private:
  using Stored = std::optional<StoredTransaction>;

  [[nodiscard]] const Stored& Read(std::int64_t key);
  [[nodiscard]] std::optional<Warning> CheckArrival(const TransactionForm& form);
  [[nodiscard]] double AmountTo(const TransactionForm& form);
  void WriteOrdinary(const TransactionForm& form, const Stored& stored, TransactionRecord& record);
  void WriteTransfer(const TransactionForm& form, const Stored& stored, TransactionRecord& record,
                     double amountTo);

  RateSource& rates_;
  StoredRow<StoredTransaction> stored_;
};

}  // namespace corvanta::inline entry
