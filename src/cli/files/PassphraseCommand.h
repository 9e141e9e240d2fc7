#pragma once

#include "cli/Command.h"

namespace corvanta::inline cli {

// "passphrase": what opens the data file on every computer, in place of this installation's key.
class PassphraseCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  [[nodiscard]] static ExitStatus Show(bool isSet, Session& session);
  [[nodiscard]] static ExitStatus Set(Session& session);
  [[nodiscard]] static ExitStatus SwitchOff(Session& session);

  Parser* set_ = nullptr;
  Parser* change_ = nullptr;
  Parser* off_ = nullptr;
};

}  // namespace corvanta::inline cli
