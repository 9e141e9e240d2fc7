#pragma once

#include "cli/Command.h"

namespace corvanta::inline cli {

// "passphrase": what opens the data file on every computer, in place of this installation's key.
class PassphraseCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  [[nodiscard]] static ExitStatus Show(bool isSet, Session& session);
  [[nodiscard]] static ExitStatus Set(Session& session);
  [[nodiscard]] static ExitStatus SwitchOff(Session& session);

  CLI::App* set_ = nullptr;
  CLI::App* change_ = nullptr;
  CLI::App* off_ = nullptr;
};

}  // namespace corvanta::inline cli
