#include "cli/DeleteCommand.h"

#include "cli/Session.h"
#include "ledger/clsCorvanta.h"

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
  return DeleteRows(*rows, ledger, session);
}

}  // namespace corvanta::inline cli
