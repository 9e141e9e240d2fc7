#pragma once

#include "cli/Command.h"
#include "cli/arguments/TransactionsArgument.h"
#include "cli/transactions/SplitLines.h"

namespace corvanta::inline cli {

// split ID: lists the lines of a transaction, adds some, edits, replaces or deletes them.
class SplitCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  TransactionsArgument transaction_;
  SplitLines lines_;
};

}  // namespace corvanta::inline cli
