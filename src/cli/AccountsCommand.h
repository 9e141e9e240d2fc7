#pragma once

#include "cli/Command.h"

namespace corvanta {

// accounts: every account, closed ones too, with its balance.
class AccountsCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;
};

}  // namespace corvanta
