#include "cli/SetStatusCommand.h"

#include "cli/Arguments.h"
#include "cli/Session.h"
#include "ledger/StatusBook.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {
namespace {

StatusCommand CommandOf(const std::string& status) {
  if (status == "cleared") return StatusCommand::Cleared;
  return status == "reconciled" ? StatusCommand::Reconciled : StatusCommand::Uncleared;
}

}  // namespace

CLI::App* SetStatusCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand("status", "Set the status of transactions");
  transactions_.Declare(*command);
  command->add_option("--set", status_, "uncleared, cleared or reconciled")
      ->type_name("STATUS")
      ->transform(CLI::Validator(OneOf({"uncleared", "cleared", "reconciled"}), ""))
      ->required();
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
