#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline cli {

// merge payee|category FROM INTO: moves all that uses one payee or category to another one.
class MergeCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string kind_;
  std::string from_;
  std::string into_;
};

}  // namespace corvanta::inline cli
