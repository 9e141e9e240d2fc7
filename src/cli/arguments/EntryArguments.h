// What the commands that enter transactions share.
#pragma once

#include "entry/TransactionForm.h"
#include "ledger/transactions/TransactionStatus.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// The account of that name or "#" and key; nullopt when there is none, which has then been told.
[[nodiscard]] std::optional<std::int64_t> AccountOf(clsCorvanta& ledger, const std::string& name,
                                                    Session& session);

// The check of an argument that is "expense", "income" or "transfer".
[[nodiscard]] std::function<std::string(std::string&)> EntryTypeWord();
[[nodiscard]] EntryType EntryTypeOf(const std::string& word);

// --status with one of three words, which stands for itself.
void DeclareStatus(Parser& command, std::optional<std::string>& status);
[[nodiscard]] TransactionStatus StatusOf(const std::string& word);

// The options that transactions and schedules have in common; what is not given is left as it is.
class EntryFields {
 public:
  // From the account to the amount, with what that is said to be. `isNew`: those that a new row
  // cannot do without are required.
  void DeclareFields(Parser& command, bool isNew,
                     const char* amount = "Without a sign, in the account's currency");
  // Reference and description, with what they are said to be.
  void DeclareTexts(Parser& command, const char* reference, const char* description);
  // Puts what was given into the form, whose type is set; false, told under the title, when an
  // option does not go with the type or an account is not there.
  [[nodiscard]] bool Fill(EntryForm& form, const char* title, clsCorvanta& ledger,
                          Session& session) const;
  [[nodiscard]] bool HasAmount() const { return amount_.has_value(); }

 private:
  std::optional<std::string> account_;
  std::optional<std::string> to_;
  std::optional<std::string> payee_;
  std::optional<std::string> payment_;
  std::optional<std::string> category_;
  std::optional<std::string> amount_;
  std::optional<std::string> reference_;
  std::optional<std::string> description_;
};

// The options that say what a transaction is; what is not given is left as it is.
class EntryArguments {
 public:
  // `isNew`: those that a new transaction cannot do without are required.
  void Declare(Parser& command, bool isNew);
  // Puts what was given into the form, whose type is set; false, told, when an option does not go
  // with the type or an account is not there.
  [[nodiscard]] bool Fill(TransactionForm& form, clsCorvanta& ledger, Session& session) const;

 private:
  // Of the half that receives in another currency, the amount is what arrives.
  [[nodiscard]] bool FillArrival(TransactionForm& form, std::optional<double> leaves,
                                 clsCorvanta& ledger, Session& session) const;

  EntryFields fields_;
  std::optional<std::string> amountTo_;
  std::optional<std::string> date_;
  std::optional<std::string> status_;
};

}  // namespace corvanta::inline cli
