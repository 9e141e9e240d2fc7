#pragma once

#include "cli/Command.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/FilterArguments.h"

#include <string>

namespace corvanta::inline cli {

// export FILE --account A: the transactions of an account as QIF, OFX, CSV or a spreadsheet, by the
// file's extension. A file that is there is replaced with --force alone.
class ExportCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string file_;
  AccountArgument account_;
  PeriodArguments period_;
  FilterArguments filter_;
  StatusArgument status_;
  bool force_ = false;
};

}  // namespace corvanta::inline cli
