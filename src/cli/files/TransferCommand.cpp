#include "cli/files/TransferCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "safety/Transfer.h"

namespace corvanta::inline cli {

Parser* TransferCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "transfer", "Write the key of the data file and the settings, for another machine");
  command->AddOption("file", file_, "The transfer file, such as Corvanta.tfr")
      ->Required()
      ->Check(EmptyFault);
  return command;
}

ExitStatus TransferCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  WriteTransfer(file_, file->connection->Path(), file->password, session.Machine());
  session.Tell("Transfer", "The key and the settings are written into " + file_ +
                               ". Keep it apart from the data file.");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
