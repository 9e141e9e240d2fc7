#include "cli/arguments/EntryArguments.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"
#include "ledger/accounts/CurrencyOf.h"
#include "ledger/reference/CategoryPath.h"
#include "platform/TextCase.h"

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Transaction";

void Copy(const std::optional<std::string>& given, std::string& field) {
  if (given) field = *given;
}

}  // namespace

std::optional<std::int64_t> AccountOf(clsCorvanta& ledger, const std::string& name,
                                      Session& session) {
  const auto account = AccountArgument{name}.Find(ledger, session);
  return account ? std::optional(account->accountId) : std::nullopt;
}

std::function<std::string(std::string&)> EntryTypeWord() {
  return OneOf({"expense", "income", "transfer"});
}

EntryType EntryTypeOf(const std::string& word) {
  if (word == "income") return EntryType::Income;
  return word == "transfer" ? EntryType::Transfer : EntryType::Expense;
}

void DeclareStatus(Parser& command, std::optional<std::string>& status) {
  command.AddOption("--status", status, "uncleared, cleared or reconciled")
      ->TypeName("STATUS")
      ->Correct(OneOf({"uncleared", "cleared", "reconciled"}));
}

TransactionStatus StatusOf(const std::string& word) {
  if (word == "cleared") return TransactionStatus::Cleared;
  return word == "reconciled" ? TransactionStatus::Reconciled : TransactionStatus::Uncleared;
}

void EntryFields::DeclareFields(Parser& command, bool isNew, const char* amount) {
  command.AddOption("--account", account_, "The account; of a transfer, where it comes from")
      ->Required(isNew);
  command.AddOption("--to", to_, "Of a transfer: where it goes to");
  command.AddOption("--payee", payee_, "Of an expense or income");
  command.AddOption("--payment", payment_, "The payment type")->Required(isNew);
  command.AddOption("--category", category_,
                    "Category or Category:SubCategory (of a transfer: Credit without it)");
  command.AddOption("--amount", amount_, amount)
      ->TypeName("N")
      ->Check(NumberFault)
      ->Required(isNew);
}

void EntryFields::DeclareTexts(Parser& command, const char* reference, const char* description) {
  command.AddOption("--reference", reference_, reference);
  command.AddOption("--description", description_, description);
}

bool EntryFields::Fill(EntryForm& form, const char* title, clsCorvanta& ledger,
                       Session& session) const {
  const bool isTransfer = form.IsTransfer();
  if (isTransfer ? payee_.has_value() : to_.has_value()) {
    session.Tell(title, isTransfer ? "A transfer has no payee, it goes --to an account."
                                   : "Only a transfer goes --to an account.");
    return false;
  }
  const auto takeAccount = [&](const std::optional<std::string>& given, std::int64_t& field) {
    if (!given) return true;
    const auto key = AccountOf(ledger, *given, session);
    if (key) field = *key;
    return key.has_value();
  };
  if (!takeAccount(account_, form.accountId) || !takeAccount(to_, form.accountToId)) return false;
  Copy(payee_, form.payee);
  Copy(payment_, form.payment);
  Copy(reference_, form.reference);
  Copy(description_, form.description);
  if (category_) {
    const CategoryName name = CategoryOf(ledger, *category_);
    form.category = name.category;
    form.subCategory = name.subCategory;
  }
  if (amount_) form.amount = NumberOf(*amount_);
  return true;
}

void EntryArguments::Declare(Parser& command, bool isNew) {
  fields_.DeclareFields(command, isNew,
                        isNew ? "Without a sign, in the account's currency"
                              : "Without a sign, in the currency of the account that the "
                                "transaction is in: of the half of a transfer that receives, what "
                                "arrives");
  command
      .AddOption("--amount-to", amountTo_,
                 "Of a transfer between currencies: what arrives, in the other account's "
                 "(at the current rate without it)")
      ->TypeName("N")
      ->Check(NumberFault);
  command
      .AddOption("--date", date_,
                 isNew ? "The day, today without it (YYYY-MM-DD)" : "The day (YYYY-MM-DD)")
      ->Check(DateFault);
  fields_.DeclareTexts(command, "Such as a cheque's number", "What it was for");
  DeclareStatus(command, status_);
}

bool EntryArguments::Fill(TransactionForm& form, clsCorvanta& ledger, Session& session) const {
  const std::optional<double> leaves = form.amount;
  if (!fields_.Fill(form, kTitle, ledger, session)) return false;
  if (amountTo_ && !form.IsTransfer()) {
    session.Tell(kTitle, "Only of a transfer an --amount-to arrives.");
    return false;
  }
  if (!FillArrival(form, leaves, ledger, session)) return false;
  if (date_) form.date = Date::FromIso(*date_).value_or(form.date);
  if (status_) form.status = StatusOf(*status_);
  return true;
}

bool EntryArguments::FillArrival(TransactionForm& form, std::optional<double> leaves,
                                 clsCorvanta& ledger, Session& session) const {
  if (amountTo_) form.amountTo = NumberOf(*amountTo_);
  const bool isArrival =
      fields_.HasAmount() && form.IsTransfer() && form.isToHalf &&
      !EqualFolded(CurrencyOf(ledger, form.accountId), CurrencyOf(ledger, form.accountToId));
  if (!isArrival) return true;
  if (amountTo_) {
    session.Tell(kTitle,
                 "This is the half that receives: its --amount is what arrives, as --amount-to is. "
                 "Give one of them, or change what leaves with the other half's key.");
    return false;
  }
  form.amountTo = form.amount;
  form.amount = leaves;
  return true;
}

}  // namespace corvanta::inline cli
