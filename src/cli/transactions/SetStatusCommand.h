#pragma once

#include "cli/Command.h"
#include "cli/arguments/TransactionsArgument.h"

#include <string>

namespace corvanta::inline cli {

// status ID... --set STATUS: sets the status of transactions, whatever it was before.
class SetStatusCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  TransactionsArgument transactions_;
  std::string status_;
};

}  // namespace corvanta::inline cli
