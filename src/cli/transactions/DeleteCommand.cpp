#include "cli/transactions/DeleteCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"

namespace corvanta::inline cli {
Parser* DeleteCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("delete", "Delete transactions with their split lines and other half");
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
