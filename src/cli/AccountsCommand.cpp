#include "cli/AccountsCommand.h"

#include "cli/OutputTable.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta {

CLI::App* AccountsCommand::Declare(CLI::App& parser) {
  return parser.add_subcommand("accounts", "List the accounts with their balances");
}

ExitStatus AccountsCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Account"},
                     {"Number"},
                     {"Group"},
                     {"Bank"},
                     {"Currency"},
                     {"Opening", OutputKind::Money},
                     {"Balance", OutputKind::Money},
                     {"Closed", OutputKind::Integer},
                     {"Description"}});
  for (const AccountRow& row : ledger.Accounts(StatusFilter{}, true)) {
    table.AddRow({row.accountId, row.account, row.accountNo, row.accountType, row.bank,
                  row.currency, row.openingBalance, row.balance, row.closed ? 1 : 0,
                  row.description});
  }
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace corvanta
