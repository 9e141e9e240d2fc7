#pragma once

#include "cli/Command.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/FilterArguments.h"

namespace corvanta::inline cli {

// register ACCOUNT: the transactions of one account with the running balance.
class RegisterCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  AccountArgument account_;
  PeriodArguments period_;
  FilterArguments filter_;
  StatusArgument status_;
};

}  // namespace corvanta::inline cli
