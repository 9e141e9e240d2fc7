#include "cli/ScheduleArguments.h"

#include "cli/Arguments.h"
#include "cli/EntryArguments.h"
#include "cli/NamedItem.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta {
namespace {

constexpr const char* kTitle = "Schedule";
constexpr int kMostPayments = 1000000;

void Take(const std::optional<std::string>& given, std::string& field) {
  if (given) field = *given;
}

}  // namespace

const char* WordOf(AddToAccount choice) {
  if (choice == AddToAccount::No) return "no";
  return choice == AddToAccount::Ahead ? "ahead" : "due";
}

void ScheduleArguments::Declare(CLI::App& command, bool isNew) {
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
  command.add_option("--period", period_,
                     isNew ? "How often, such as Weekly; Monthly without it" : "How often");
  command
      .add_option("--start", start_,
                  isNew ? "The first payment, today without it (YYYY-MM-DD)"
                        : "The next payment (YYYY-MM-DD)")
      ->check(DateFault);
  command.add_option("--number", number_, "How many payments from the start on; 0 without end")
      ->type_name("N")
      ->check(CLI::Range(0, kMostPayments));
  command
      .add_option("--automatic", automatic_,
                  "What posts it: no (a person), due (post, when it is due) or ahead (post, as far "
                  "as the setting NoShedule looks)")
      ->type_name("CHOICE")
      ->transform(CLI::Validator(OneOf({"no", "due", "ahead"}), ""));
  command.add_option("--reference", reference_, "Of each transaction that it posts");
  command.add_option("--description", description_, "What it is for");
}

bool ScheduleArguments::Fill(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                             Session& session) const {
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
  if (amount_) form.amount = NumberOf(*amount_);
  return FillPlan(form, editor, ledger, session);
}

bool ScheduleArguments::FillAccounts(ScheduleForm& form, clsCorvanta& ledger,
                                     Session& session) const {
  const auto fill = [&](const std::optional<std::string>& given, std::int64_t& field) {
    if (!given) return true;
    const auto key = AccountOf(ledger, *given, session);
    if (key) field = *key;
    return key.has_value();
  };
  return fill(account_, form.accountId) && fill(to_, form.accountToId);
}

bool ScheduleArguments::FillPlan(ScheduleForm& form, ScheduleEditor& editor, clsCorvanta& ledger,
                                 Session& session) const {
  if (period_) {
    std::vector<NamedItem> periods;
    for (const PeriodRecord& row : ledger.Periods()) {
      periods.push_back({row.periodId, row.description});
    }
    const auto period = FindItem(periods, *period_, kTitle, "frequency", session);
    if (!period) return false;
    editor.ChoosePeriod(form, period->key);
  }
  if (start_) form.dateFrom = Date::FromIso(*start_).value_or(form.dateFrom);
  if (number_) form.number = *number_;
  if (automatic_) {
    form.addToAccount = *automatic_ == "no"    ? AddToAccount::No
                        : *automatic_ == "due" ? AddToAccount::WhenDue
                                               : AddToAccount::Ahead;
  }
  return true;
}

}  // namespace corvanta
