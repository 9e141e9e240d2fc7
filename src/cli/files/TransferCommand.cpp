#include "cli/files/TransferCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "safety/Transfer.h"

namespace corvanta::inline cli {

Parser* TransferCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "transfer", "Write the key of the data file and the settings, for another machine");
  command->AddOption("file", file_, "The transfer file, such as Corvanta.tfr")
      ->Required()
      ->Check(EmptyFault);
  command->AddFlag("--force", force_,
                   "Replace what is there already and is no transfer file of this data file");
  return command;
}

ExitStatus TransferCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  Platform& machine = session.Machine();
  machine.files.Own().RequireOther(file_);
  if (!force_ && !IsFreeForTransfer(file_, file->password)) {
    return session.Refuse("Transfer", "There is a file " + file_ +
                                          " already that is no transfer file of this data file. "
                                          "It was left as it is. Use --force to replace it.");
  }
  WriteTransfer(file_, file->connection->Path(), file->password,
                force_ ? FormerFile::Replace : FormerFile::Refuse, machine);
  session.Tell("Transfer", "The key and the settings are written into " + file_ +
                               ". Keep it apart from the data file.");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
