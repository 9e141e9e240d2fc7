#include "cli/DeleteCommand.h"

#include "cli/Session.h"
#include "ledger/TransactionBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reference/Deletion.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {
CLI::App* DeleteCommand::Declare(CLI::App& parser) {
  CLI::App* command =
      parser.add_subcommand("delete", "Delete transactions with their split lines and other half");
  transactions_.Declare(*command);
  return command;
}

ExitStatus DeleteCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transactions_.Find(ledger, session);
  if (!rows) return ExitStatus::Refused;
  // What goes with the rows has to be in an open account too.
  if (RefuseClosed(ledger.Transactions().ReachesClosedAccount(KeysOf(*rows)), session))
    return ExitStatus::Refused;

  if (!AskDeleteItems(session.Machine().prompts, rows->size())) return ExitStatus::Refused;
  ledger.Transactions().DeleteTransactions(KeysOf(*rows));
  session.Tell("Delete", TransactionCount(rows->size()) + " deleted");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
