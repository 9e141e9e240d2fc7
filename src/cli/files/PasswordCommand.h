#pragma once

#include "cli/Command.h"

namespace corvanta::inline ledger {
class LoginPassword;
}

namespace corvanta::inline cli {

// password [set|change|off]: the password that the data file asks for.
class PasswordCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus Show(Session& session) const;
  ExitStatus Set(LoginPassword& password, Session& session) const;
  ExitStatus SwitchOff(LoginPassword& password, Session& session) const;

  Parser* set_ = nullptr;
  Parser* change_ = nullptr;
  Parser* off_ = nullptr;
};

}  // namespace corvanta::inline cli
