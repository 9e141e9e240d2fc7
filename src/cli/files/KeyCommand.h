#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline cli {

// key show: the recovery key of the data file. key use FILE: takes a data file of another
// installation over, with the key or transfer file that came with it.
class KeyCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus Show(Session& session) const;
  ExitStatus Use(Session& session) const;

  Parser* show_ = nullptr;
  std::string file_;
};

}  // namespace corvanta::inline cli
