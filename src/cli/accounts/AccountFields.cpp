#include "cli/accounts/AccountFields.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/CurrencyArgument.h"

namespace corvanta::inline cli {

void AccountFields::Declare(Parser& command, bool isNew) {
  command.AddOption("--group", group_, "Its account group; a new one is made")->Required(isNew);
  command.AddOption("--currency", currency_, "The code of its currency, such as GBP")
      ->Required(isNew);
  command.AddOption("--opening", opening_, "Its opening balance")
      ->TypeName("N")
      ->Check(NumberFault);
  command.AddOption("--number", number_, "Its number at the bank");
  command.AddOption("--bank", bank_, "Its bank; a new one is made, none for no bank");
  command.AddOption("--description", description_, "What it is");
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
