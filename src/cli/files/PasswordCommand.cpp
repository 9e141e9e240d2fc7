#include "cli/files/PasswordCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/files/NewSecret.h"
#include "cli/output/OutputTable.h"
#include "ledger/secrets/LoginPassword.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <ostream>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Password";

}  // namespace

Parser* PasswordCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "password", "Whether the data file asks for a password; set, change or switch it off");
  command->AllowCommand();
  set_ = command->AddCommand("set", "Give the data file a password, which is asked for twice");
  change_ = command->AddCommand("change", "Give it another one, after the present one");
  off_ = command->AddCommand("off", "Ask for it no more, after it was given once again");
  return command;
}

ExitStatus PasswordCommand::Run(Session& session) {
  const bool writes = set_->Parsed() || change_->Parsed() || off_->Parsed();
  if (!writes) return Show(session);
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  LoginPassword password(*file->connection);
  if (set_->Parsed() && password.IsAsked()) {
    return session.Refuse(kTitle, "The data file has a password. \"password change\" changes it.");
  }
  if (!set_->Parsed() && !password.IsSet()) {
    return session.Refuse(kTitle, "The data file has no password. \"password set\" sets one.");
  }
  return off_->Parsed() ? SwitchOff(password, session) : Set(password, session);
}

ExitStatus PasswordCommand::Show(Session& session) const {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  const char* state = LoginPassword(*file->connection).IsAsked() ? "on" : "off";
  if (session.Options().format == "text") {
    session.Out() << state << '\n';
    return ExitStatus::Done;
  }
  OutputTable table({{"Password"}});
  table.AddRow({state});
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus PasswordCommand::Set(LoginPassword& password, Session& session) const {
  const std::optional<std::string> typed =
      AskNewSecret(kTitle, "password", CheckNewPassword, session);
  if (!typed) return ExitStatus::Refused;
  password.Set(*typed);
  Settings(session.Machine().registry).SetOn(Setting::Login, true);
  session.Tell(kTitle, "The data file asks for the new password from now on");
  return ExitStatus::Done;
}

ExitStatus PasswordCommand::SwitchOff(LoginPassword& password, Session& session) const {
  password.Set("");
  Settings(session.Machine().registry).SetOn(Setting::Login, false);
  session.Tell(kTitle, "The data file asks for no password any more");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
