#include "cli/InvestTransFields.h"

#include "cli/Arguments.h"
#include "cli/EntryArguments.h"
#include "cli/InvestmentArgument.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <vector>

namespace corvanta::inline cli {
namespace {

// In the order of the actions' codes.
const std::vector<std::string> kWords = {"buy", "sell", "dividend", "reinvest", "add", "remove"};

InvestAction ActionOf(const std::string& word) {
  const auto place = std::ranges::find(kWords, word) - kWords.begin();
  return kInvestActions[place].action;
}

}  // namespace

void InvestTransFields::Declare(CLI::App& command, bool isNew) {
  command
      .add_option(isNew ? "action" : "--action", action_,
                  "buy, sell, dividend, reinvest (a dividend), add or remove (shares)")
      ->type_name("ACTION")
      ->transform(CLI::Validator(OneOf(kWords), ""))
      ->required(isNew);
  command.add_option("--account", account_, "The account that holds it")->required(isNew);
  command.add_option("--investment", investment_, "Its name or symbol, or # and its key")
      ->required(isNew);
  const auto figure = [&](const char* name, std::optional<std::string>& value, const char* what) {
    command.add_option(name, value, what)->type_name("N")->check(NumberFault);
  };
  figure("--shares", shares_, "How many");
  figure("--price", price_, "Of one, in the account's currency");
  figure("--commission", commission_, "What it cost beside that");
  figure("--dividend", dividend_, "What was paid out");
  figure("--total", total_, "What goes out of the account or into it (worked out without it)");
  command
      .add_option("--date", date_,
                  isNew ? "The day, today without it (YYYY-MM-DD)" : "The day (YYYY-MM-DD)")
      ->check(DateFault);
  DeclareStatus(command, status_);
  command.add_option("--description", description_, "What it was for");
}

bool InvestTransFields::Fill(InvestTransForm& form, const InvestTransEditor& editor,
                             clsCorvanta& ledger, Session& session) const {
  if (!FillNames(form, ledger, session) || !FillFigures(form, editor, session)) return false;
  if (date_) form.date = Date::FromIso(*date_).value_or(form.date);
  if (status_) form.status = StatusOf(*status_);
  form.description = description_.value_or(form.description);
  return true;
}

bool InvestTransFields::FillNames(InvestTransForm& form, clsCorvanta& ledger,
                                  Session& session) const {
  if (account_) {
    const auto account = AccountOf(ledger, *account_, session);
    if (!account) return false;
    form.accountId = *account;
  }
  if (!investment_) return true;
  const auto investment = InvestmentArgument{*investment_}.Find(ledger, session);
  if (investment) form.investmentId = investment->key;
  return investment.has_value();
}

bool InvestTransFields::FillFigures(InvestTransForm& form, const InvestTransEditor& editor,
                                    Session& session) const {
  if (action_) editor.ChooseAction(form, ActionOf(*action_));
  const InvestFigures used = FiguresOf(form.action);
  struct Option {
    const char* name;
    const std::optional<std::string>& given;
    bool isUsed;
    double& value;
  };
  const Option options[] = {{"--dividend", dividend_, used.dividend, form.dividend},
                            {"--shares", shares_, used.shares, form.shares},
                            {"--price", price_, used.price, form.price},
                            {"--commission", commission_, used.commission, form.commission},
                            {"--total", total_, used.total, form.total}};
  bool changes = false;
  for (const Option& option : options) {
    if (!option.given) continue;
    if (!option.isUsed) {
      session.Tell("Investment Transaction",
                   std::string("There is no ") + option.name + " with the action " +
                       ActionName(static_cast<std::int64_t>(*form.action)) + ".");
      return false;
    }
    option.value = NumberOf(*option.given);
    changes = true;
  }
  if (changes && !total_) editor.Recalculate(form);
  return true;
}

}  // namespace corvanta::inline cli
