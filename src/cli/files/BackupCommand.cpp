#include "cli/files/BackupCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "safety/Backup.h"
#include "store/datafile/OpenDataFile.h"

namespace corvanta::inline cli {

Parser* BackupCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("backup", "Make a backup of the data file");
  command->AddOption("file", file_, "The backup (default: where the setting Backup sends it)")
      ->Check(EmptyFault);
  Argument* list = command->AddFlag("--list", lists_, "Show the backups that there are");
  command
      ->AddFlag("--transfer", withTransfer_,
                "Write a transfer file beside it, which holds the key and the settings")
      ->Excludes(list);
  return command;
}

ExitStatus BackupCommand::Run(Session& session) {
  // Beside a window that has the file open, too: it is only read.
  const std::optional<DataFile> open = session.Open(Access::Read);
  if (!open) return ExitStatus::Refused;
  const BackedFile file{open->connection->Path(), open->password};
  Backup backup(session.Machine(), session.Opener().AsWriter());
  return lists_ ? List(backup, file, session) : Make(backup, file, session);
}

ExitStatus BackupCommand::List(const Backup& backup, const BackedFile& file, Session& session) {
  OutputTable table({{"Made"}, {"File"}});
  for (const Generation& each : backup.Generations(file)) {
    table.AddRow({each.made.ToIso(), each.path});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus BackupCommand::Make(Backup& backup, const BackedFile& file, Session& session) const {
  BackupWishes wishes = backup.Chosen();
  wishes.withTransfer = withTransfer_;
  const BackupResult result =
      file_.empty() ? backup.Make(file, wishes) : backup.MakeAt(file, file_, wishes);
  session.Tell("Backup", "The data file is backed up as " + result.path);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
