#include "cli/NewCommand.h"

#include "cli/Session.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {

CLI::App* NewCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand("new", "Create the data file, with sample data");
  command->add_flag("--empty", empty_, "Leave the sample data out");
  return command;
}

ExitStatus NewCommand::Run(Session& session) {
  const DataFile file = session.Opener().CreateNew(empty_);
  session.Tell("New", "Created the data file " + file.connection->Path());
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
