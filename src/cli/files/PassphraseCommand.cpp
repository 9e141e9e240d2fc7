#include "cli/files/PassphraseCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/files/NewSecret.h"
#include "cli/output/OutputTable.h"
#include "ledger/secrets/PassphrasePrompt.h"
#include "store/datafile/Passphrase.h"

#include <ostream>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Passphrase";

}  // namespace

Parser* PassphraseCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "passphrase", "Whether the data file opens with a passphrase; set, change or remove it");
  command->AllowCommand();
  set_ = command->AddCommand(
      "set", "Encrypt the data file with a passphrase, which opens it on every computer");
  change_ = command->AddCommand("change", "Encrypt it with another one, after the present one");
  off_ = command->AddCommand("off", "Encrypt it with this installation's key again");
  return command;
}

ExitStatus PassphraseCommand::Run(Session& session) {
  bool isSet = false;
  {
    // Asks for what protects the file now.
    const std::optional<DataFile> file = session.Open(Access::Read);
    if (!file) return ExitStatus::Refused;
    isSet = IsFromPassphrase(file->password);
  }
  if (set_->Parsed() && isSet) {
    return session.Refuse(kTitle,
                          "The data file has a passphrase. \"passphrase change\" changes it.");
  }
  if ((change_->Parsed() || off_->Parsed()) && !isSet) {
    return session.Refuse(kTitle, "The data file has no passphrase. \"passphrase set\" sets one.");
  }
  if (off_->Parsed()) return SwitchOff(session);
  return set_->Parsed() || change_->Parsed() ? Set(session) : Show(isSet, session);
}

ExitStatus PassphraseCommand::Show(bool isSet, Session& session) {
  const char* state = isSet ? "on" : "off";
  if (session.Options().format == "text") {
    session.Out() << state << '\n';
    return ExitStatus::Done;
  }
  OutputTable table({{"Passphrase"}});
  table.AddRow({state});
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus PassphraseCommand::Set(Session& session) {
  const auto typed = AskNewSecret(kTitle, "passphrase", CheckNewPassphrase, session);
  if (!typed) return ExitStatus::Refused;
  session.Opener().Protect(NewPasswordFromPassphrase(*typed));
  session.Tell(
      kTitle,
      "The data file opens with the new passphrase from now on, on every computer, and with "
      "nothing else");
  return ExitStatus::Done;
}

ExitStatus PassphraseCommand::SwitchOff(Session& session) {
  session.Opener().Protect({});
  session.Tell(kTitle,
               "The data file opens with the key of this installation again. Save its recovery key "
               "with \"key show\"");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
