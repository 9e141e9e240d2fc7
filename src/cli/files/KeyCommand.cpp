#include "cli/files/KeyCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "ledger/secrets/PassphrasePrompt.h"
#include "platform/Files.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/Passphrase.h"
#include "store/sql/StoreError.h"

#include <optional>
#include <ostream>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Recovery Key";

}  // namespace

Parser* KeyCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("key", "The recovery key of the data file");
  command->RequireCommand();
  show_ = command->AddCommand("show", "Show the key that opens this data file elsewhere");
  Parser* use =
      command->AddCommand("use", "Open a data file that was brought from another installation");
  use->AddOption("file", file_,
                 "The transfer file, a file with the recovery key, or a backup of installation.key")
      ->Required();
  return command;
}

ExitStatus KeyCommand::Run(Session& session) {
  return show_->Parsed() ? Show(session) : Use(session);
}

ExitStatus KeyCommand::Show(Session& session) const {
  // What is shown has opened the file in this moment.
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  if (IsFromPassphrase(file->password)) {
    return session.Refuse(kTitle, kNoOtherKey);
  }
  const std::string key = RecoveryKeyFromPassword(file->password);
  // As text it is the key alone, so that the output saved in a file is a file for "key use".
  if (session.Options().format == "text") {
    session.Out() << key << '\n';
    return ExitStatus::Done;
  }
  OutputTable table({{"Key"}});
  table.AddRow({key});
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus KeyCommand::Use(Session& session) const {
  // A key typed as an argument would stay readable in the shell's history.
  if (!FileExists(file_)) {
    return session.Refuse(
        kTitle, "There is no file \"" + file_ + "\". Save the key in a file and name that file.");
  }
  const DataFile file =
      session.Opener().UseKey(file_, [&](Connection& opened) { return session.Admits(opened); });
  if (!file.connection) return ExitStatus::Refused;
  session.Tell(kTitle, (file.isRenewed ? "The data file now opens on this installation: "
                                       : "The data file opens on this installation already: ") +
                           file.connection->Path());
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
