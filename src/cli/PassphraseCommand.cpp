#include "cli/PassphraseCommand.h"

#include "cli/NewSecret.h"
#include "cli/OutputTable.h"
#include "cli/Session.h"
#include "ledger/PassphrasePrompt.h"
#include "store/datafile/Passphrase.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Passphrase";

}  // namespace

CLI::App* PassphraseCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand(
      "passphrase", "Whether the data file opens with a passphrase; set, change or remove it");
  command->require_subcommand(0, 1);
  set_ = command->add_subcommand(
      "set", "Encrypt the data file with a passphrase, which opens it on every computer");
  change_ = command->add_subcommand("change", "Encrypt it with another one, after the present one");
  off_ = command->add_subcommand("off", "Encrypt it with this installation's key again");
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
  if (set_->parsed() && isSet) {
    return session.Refuse(kTitle,
                          "The data file has a passphrase. \"passphrase change\" changes it.");
  }
  if ((change_->parsed() || off_->parsed()) && !isSet) {
    return session.Refuse(kTitle, "The data file has no passphrase. \"passphrase set\" sets one.");
  }
  if (off_->parsed()) return SwitchOff(session);
  return set_->parsed() || change_->parsed() ? Set(session) : Show(isSet, session);
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
