#pragma once

#include "cli/Command.h"

namespace corvanta::inline cli {

// new [--empty]: creates the data file, with sample data unless told otherwise.
class NewCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  bool empty_ = false;
};

}  // namespace corvanta::inline cli
