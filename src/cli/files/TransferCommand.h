#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline cli {

// transfer FILE: writes a transfer file, with which the data file opens on another machine.
class TransferCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string file_;
  bool force_ = false;
};

}  // namespace corvanta::inline cli
