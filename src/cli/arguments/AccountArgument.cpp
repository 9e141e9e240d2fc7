#include "cli/arguments/AccountArgument.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/CloseNames.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/StatusFilter.h"

#include <vector>

namespace corvanta::inline cli {

void AccountArgument::Declare(Parser& command) {
  command.AddOption("account", name, "The account's name, or # and its key")->Required();
}

std::optional<AccountRow> AccountArgument::Find(clsCorvanta& ledger, Session& session) const {
  std::optional<AccountRow> account = ledger.Accounts().FindAccount(name);
  if (account) return account;
  std::vector<std::string> names;
  for (AccountRow& row : ledger.Accounts().Accounts(StatusFilter{}, true)) {
    names.push_back(std::move(row.account));
  }
  session.Tell("Account",
               "There is no account \"" + name + "\"." + DidYouMean(CloseNames(name, names)));
  return std::nullopt;
}

}  // namespace corvanta::inline cli
