#pragma once

#include "cli/Command.h"

namespace corvanta::inline ledger {
class LoginPassword;
}

namespace corvanta::inline cli {

// password [set|change|off]: the password that the data file asks for.
class PasswordCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus Show(Session& session) const;
  ExitStatus Set(LoginPassword& password, Session& session) const;
  ExitStatus SwitchOff(LoginPassword& password, Session& session) const;

  CLI::App* set_ = nullptr;
  CLI::App* change_ = nullptr;
  CLI::App* off_ = nullptr;
};

}  // namespace corvanta::inline cli
