#pragma once

#include "cli/Command.h"
#include "cli/arguments/TransactionsArgument.h"

#include <vector>

namespace corvanta::inline cli {

// delete ID...: deletes transactions, each with its split lines and its other half.
class DeleteCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  TransactionsArgument transactions_;
};

}  // namespace corvanta::inline cli
