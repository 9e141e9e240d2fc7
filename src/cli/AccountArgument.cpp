#include "cli/AccountArgument.h"

#include "cli/CloseNames.h"
#include "cli/Session.h"
#include "ledger/AccountBook.h"
#include "ledger/AccountRow.h"
#include "ledger/StatusFilter.h"

#include <CLI/CLI.hpp>

#include <vector>

namespace corvanta::inline cli {

void AccountArgument::Declare(CLI::App& command) {
  command.add_option("account", name, "The account's name, or # and its key")->required();
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
