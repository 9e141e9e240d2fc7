#include "cli/files/NewCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"

namespace corvanta::inline cli {

Parser* NewCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("new", "Create the data file, with sample data");
  command->AddFlag("--empty", empty_, "Leave the sample data out");
  return command;
}

ExitStatus NewCommand::Run(Session& session) {
  const DataFile file = session.Opener().CreateNew(empty_);
  session.Tell("New", "Created the data file " + file.connection->Path());
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
