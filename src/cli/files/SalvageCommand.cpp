#include "cli/files/SalvageCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "platform/Platform.h"
#include "safety/FileStore.h"
#include "safety/SalvageEditor.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/backup/SalvageDataFile.h"

namespace corvanta::inline cli {

Parser* SalvageCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "salvage", "Read what can still be read of a damaged data file into a new one");
  command->AddOption("file", file_, "The new data file, which must not be there yet")
      ->Required()
      ->Check(EmptyFault);
  return command;
}

ExitStatus SalvageCommand::Run(Session& session) {
  if (!session.PassLogin()) return ExitStatus::Refused;
  Platform& platform = session.Machine();
  const std::string damaged = session.Opener().Location().Path();
  const auto typed = session.Opener().Passwords().Of(damaged);
  const std::string password = typed ? *typed : FindInstallationPassword(platform).value_or("");
  const std::vector<SalvagedTable> tables =
      SalvageDataFile({damaged, password, {}}, file_, session.Opener().AsWriter(), platform);
  OutputTable table({{"Table"}, {"Rows", OutputKind::Integer}, {"Keys lost"}});
  for (const SalvagedTable& each : tables) {
    table.AddRow({each.table, each.rows, LostText(each.lost)});
  }
  session.Print(table);
  session.Tell("Salvage", "What can be read of " + damaged + " is in " + file_);
  const std::string missing = RestoreFileStore(damaged, file_, platform.files);
  if (!missing.empty()) session.Tell("Salvage", missing);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
