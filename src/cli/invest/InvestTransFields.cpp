#include "cli/invest/InvestTransFields.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/EntryArguments.h"
#include "cli/arguments/InvestmentArgument.h"

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

void InvestTransFields::Declare(Parser& command, bool isNew) {
  command
      .AddOption(isNew ? "action" : "--action", action_,
                 "buy, sell, dividend, reinvest (a dividend), add or remove (shares)")
      ->TypeName("ACTION")
      ->Correct(OneOf(kWords))
      ->Required(isNew);
  command.AddOption("--account", account_, "The account that holds it")->Required(isNew);
  command.AddOption("--investment", investment_, "Its name or symbol, or # and its key")
      ->Required(isNew);
  const auto figure = [&](const char* name, std::optional<std::string>& value, const char* what) {
    command.AddOption(name, value, what)->TypeName("N")->Check(NumberFault);
  };
  figure("--shares", shares_, "How many");
  figure("--price", price_, "Of one, in the account's currency");
  figure("--commission", commission_, "What it cost beside that");
  figure("--dividend", dividend_, "What was paid out");
  figure("--total", total_, "What goes out of the account or into it (worked out without it)");
  command
      .AddOption("--date", date_,
                 isNew ? "The day, today without it (YYYY-MM-DD)" : "The day (YYYY-MM-DD)")
      ->Check(DateFault);
  DeclareStatus(command, status_);
  command.AddOption("--description", description_, "What it was for");
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
