#include "cli/EntryArguments.h"

#include "cli/AccountArgument.h"
#include "cli/Arguments.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta {
namespace {

constexpr const char* kTitle = "Transaction";

void Take(const std::optional<std::string>& given, std::string& field) {
  if (given) field = *given;
}

}  // namespace

CategoryName CategoryOf(clsCorvanta& ledger, const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos || ledger.FindCategory(text, {}) != 0) return {text, {}};
  return {text.substr(0, colon), text.substr(colon + 1)};
}

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

void DeclareStatus(CLI::App& command, std::optional<std::string>& status) {
  command.add_option("--status", status, "uncleared, cleared or reconciled")
      ->type_name("STATUS")
      ->transform(CLI::Validator(OneOf({"uncleared", "cleared", "reconciled"}), ""));
}

TransactionStatus StatusOf(const std::string& word) {
  if (word == "cleared") return TransactionStatus::Cleared;
  return word == "reconciled" ? TransactionStatus::Reconciled : TransactionStatus::Uncleared;
}

void EntryArguments::Declare(CLI::App& command, bool isNew) {
  command.add_option("--account", account_, "The account; of a transfer, where it comes from")
      ->required(isNew);
  command.add_option("--to", to_, "Of a transfer: where it goes to");
  command.add_option("--payee", payee_, "Of an expense or income");
  command.add_option("--payment", payment_, "The payment type")->required(isNew);
  command.add_option("--category", category_,
                     "Category or Category:SubCategory (of a transfer: Credit without it)");
  command.add_option("--amount", amount_, "Without a sign, in the account's currency")
      ->type_name("N")
      ->check(NumberFault)
      ->required(isNew);
  command
      .add_option("--date", date_,
                  isNew ? "The day, today without it (YYYY-MM-DD)" : "The day (YYYY-MM-DD)")
      ->check(DateFault);
  command.add_option("--reference", reference_, "Such as a cheque's number");
  command.add_option("--description", description_, "What it was for");
  DeclareStatus(command, status_);
}

bool EntryArguments::Fill(TransactionForm& form, clsCorvanta& ledger, Session& session) const {
  const bool isTransfer = form.type == EntryType::Transfer;
  if (isTransfer ? payee_.has_value() : to_.has_value()) {
    session.Tell(kTitle, isTransfer ? "A transfer has no payee, it goes --to an account."
                                    : "Only a transfer goes --to an account.");
    return false;
  }
  if (!FillAccounts(form, ledger, session)) return false;
  Take(payee_, form.payee);
  Take(payment_, form.payment);
  Take(reference_, form.reference);
  Take(description_, form.description);
  if (category_) {
    const CategoryName name = CategoryOf(ledger, *category_);
    form.category = name.category;
    form.subCategory = name.subCategory;
  }
  if (amount_) {
    form.amount = NumberOf(*amount_);
    form.DropRate();
  }
  if (date_) form.date = Date::FromIso(*date_).value_or(form.date);
  if (status_) form.status = StatusOf(*status_);
  return true;
}

bool EntryArguments::FillAccounts(TransactionForm& form, clsCorvanta& ledger,
                                  Session& session) const {
  const auto fill = [&](const std::optional<std::string>& given, std::int64_t& field) {
    if (!given) return true;
    const auto key = AccountOf(ledger, *given, session);
    if (!key) return false;
    if (field != *key) form.DropRate();
    field = *key;
    return true;
  };
  return fill(account_, form.accountId) && fill(to_, form.accountToId);
}

}  // namespace corvanta
