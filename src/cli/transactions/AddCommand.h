#pragma once

#include "cli/Command.h"
#include "cli/arguments/EntryArguments.h"

#include <string>

namespace corvanta::inline cli {

// add expense|income|transfer: enters a transaction and prints its key.
class AddCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string type_;
  EntryArguments arguments_;
};

}  // namespace corvanta::inline cli
