#include "cli/transactions/SetStatusCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/StatusBook.h"

namespace corvanta::inline cli {
namespace {

StatusCommand CommandOf(const std::string& status) {
  if (status == "cleared") return StatusCommand::Cleared;
  return status == "reconciled" ? StatusCommand::Reconciled : StatusCommand::Uncleared;
}

}  // namespace

Parser* SetStatusCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("status", "Set the status of transactions");
  transactions_.Declare(*command);
  command->AddOption("--set", status_, "uncleared, cleared or reconciled")
      ->TypeName("STATUS")
      ->Correct(OneOf({"uncleared", "cleared", "reconciled"}))
      ->Required();
  return command;
}

ExitStatus SetStatusCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transactions_.Find(ledger, session);
  if (!rows || RefuseClosed(*rows, session)) return ExitStatus::Refused;

  ledger.Statuses().ApplyStatus(CommandOf(status_), KeysOf(*rows), false);
  session.Tell("Status", TransactionCount(rows->size()) + " set to " + status_);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
