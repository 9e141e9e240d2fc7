#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline cli {

// salvage FILE: reads what can still be read of a damaged data file into a new one.
class SalvageCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string file_;
};

}  // namespace corvanta::inline cli
