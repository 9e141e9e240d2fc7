#pragma once

#include "cli/Command.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/FilterArguments.h"

#include <string>
#include <vector>

namespace corvanta::inline cli {

// find WORDS: the transactions of all accounts, or of one, in which all of the words stand.
class FindCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::vector<std::string> words_;
  AccountArgument account_;
  PeriodArguments period_;
  FilterArguments filter_;
};

}  // namespace corvanta::inline cli
