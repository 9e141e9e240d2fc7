#pragma once

#include "cli/Command.h"

namespace corvanta::inline cli {

// validate: compacts, upgrades, cleans up and checks the data file.
class ValidateCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;
};

}  // namespace corvanta::inline cli
