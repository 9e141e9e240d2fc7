#pragma once

#include "entry/TransactionForm.h"
#include "ledger/Warning.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta {

struct Platform;
struct TransactionRecord;
class RateSource;
class clsCorvanta;

// What a payee's last transaction in an account suggests for the next one.
struct Proposal {
  EntryType type = EntryType::Expense;
  std::string payment;
  std::string category;
  std::string subCategory;
  double amount = 0;  // unsigned
};

// The row as the editor shows it. A split line shows the transaction that it is a line of. nullopt
// when there is no such row, and for an investment transaction. Throws StoreError.
[[nodiscard]] std::optional<TransactionForm> LoadTransaction(clsCorvanta& ledger, std::int64_t key);

// The rules behind the editor of ordinary transactions. Operations throw StoreError.
class TransactionEditor {
 public:
  TransactionEditor(clsCorvanta& ledger, Platform& platform, RateSource& rates)
      : ledger_(ledger), platform_(platform), rates_(rates) {}

  // A new expense of today, uncleared, in that account (0 for none).
  [[nodiscard]] TransactionForm New(std::int64_t accountId);
  [[nodiscard]] std::optional<TransactionForm> Load(std::int64_t key) {
    return LoadTransaction(ledger_, key);
  }
  // Why an existing row cannot be edited here: it is an investment transaction, or a closed account
  // holds it or its other half. nullopt for a row that can, and for one that is gone.
  [[nodiscard]] std::optional<Warning> CheckOpen(std::int64_t key);

  // Whether the row is the half of its transfer that receives.
  [[nodiscard]] static bool IsToHalf(const TransactionRecord& row, const TransactionRecord& other);
  // Sets the type, and with it what hangs on it: a transfer without a category is of the category
  // "Credit"; a form that ceases to be a transfer loses that category again, and where its row is
  // the To half it goes on with that half's account and amount. Show the whole form again.
  static void ChooseType(TransactionForm& form, EntryType type);
  // What the payee's last ordinary transaction in the account suggests; nullopt without one.
  [[nodiscard]] std::optional<Proposal> Propose(std::int64_t accountId, const std::string& payee);
  // The code of the account's currency; empty for no account.
  [[nodiscard]] std::string CurrencyOf(std::int64_t accountId);
  // Whether the form is a transfer into another currency, so that what arrives is another amount.
  [[nodiscard]] bool IsConverted(const TransactionForm& form);
  // What arrives as far as it is known without a rate: what the person says, what has arrived
  // where the amount is the same, and otherwise the amount at that former rate. nullopt for a new
  // transfer.
  [[nodiscard]] std::optional<double> KnownArrival(const TransactionForm& form);

  // The first rule that is broken, about the control of that name.
  [[nodiscard]] std::optional<Warning> Check(const TransactionForm& form);
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
  [[nodiscard]] const std::string& DeclinedField() const { return declinedField_; }
  // Asks, then deletes the row with its lines and its other half. True when it is gone.
  bool Delete(std::int64_t key);

  // Why the transaction cannot be split now.
  [[nodiscard]] std::optional<Warning> CheckAllocate(const TransactionForm& form);

 private:
  [[nodiscard]] std::optional<Warning> CheckArrival(const TransactionForm& form);
  [[nodiscard]] std::optional<Warning> CheckAccounts(const TransactionForm& form, bool isThere);
  [[nodiscard]] bool AskAll(const TransactionForm& form);
  [[nodiscard]] double AmountTo(const TransactionForm& form);
  [[nodiscard]] TransactionRecord RecordOf(const TransactionForm& form);
  void WriteOrdinary(const TransactionForm& form, TransactionRecord& record);
  void WriteTransfer(const TransactionForm& form, TransactionRecord& record, double amountTo);

  clsCorvanta& ledger_;
  Platform& platform_;
  RateSource& rates_;
  std::string declinedField_;
};

}  // namespace corvanta
