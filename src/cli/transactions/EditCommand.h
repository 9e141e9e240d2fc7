#pragma once

#include "cli/Command.h"
#include "cli/arguments/EntryArguments.h"
#include "cli/arguments/TransactionsArgument.h"

#include <string>

namespace corvanta::inline cli {

// edit ID: changes what is given of a transaction.
class EditCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  TransactionsArgument transaction_;
  std::string type_;  // empty to keep it
  EntryArguments arguments_;
};

}  // namespace corvanta::inline cli
