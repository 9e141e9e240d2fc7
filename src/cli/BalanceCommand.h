#pragma once

#include "cli/AccountArgument.h"
#include "cli/Arguments.h"
#include "cli/Command.h"

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
