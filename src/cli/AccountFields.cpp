#include "cli/AccountFields.h"

#include "cli/Arguments.h"
#include "cli/CurrencyArgument.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {

void AccountFields::Declare(CLI::App& command, bool isNew) {
  command.add_option("--group", group_, "Its account group; a new one is made")->required(isNew);
  command.add_option("--currency", currency_, "The code of its currency, such as GBP")
      ->required(isNew);
  command.add_option("--opening", opening_, "Its opening balance")
      ->type_name("N")
      ->check(NumberFault);
  command.add_option("--number", number_, "Its number at the bank");
  command.add_option("--bank", bank_, "Its bank; a new one is made, none for no bank");
  command.add_option("--description", description_, "What it is");
}

bool AccountFields::Fill(AccountForm& form, clsCorvanta& ledger, Session& session) const {
  if (currency_ && !FindCurrency(ledger, *currency_, form.currencyId, session)) return false;
  form.accountGroup = group_.value_or(form.accountGroup);
  if (opening_) form.openingBalance = NumberOf(*opening_);
  form.accountNo = number_.value_or(form.accountNo);
  form.bank = bank_.value_or(form.bank);
  form.description = description_.value_or(form.description);
  return true;
}

}  // namespace corvanta::inline cli
