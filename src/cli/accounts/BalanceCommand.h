#pragma once

#include "cli/Command.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"

namespace corvanta::inline cli {

// balance ACCOUNT: the totals of one account over a period.
class BalanceCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  AccountArgument account_;
  PeriodArguments period_;
  StatusArgument status_;
};

}  // namespace corvanta::inline cli
