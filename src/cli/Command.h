#pragma once

#include "cli/ExitStatus.h"

namespace corvanta::inline cli {

class Parser;
class Session;

// One command of the command line: it parses, calls the engine and prints.
class Command {
 public:
  virtual ~Command() = default;

  // Adds the command with its arguments to the parser, which writes into this object; returns the
  // command's own parser. Called once, before Run.
  virtual Parser* Declare(Parser& parser) = 0;
  // Does what was parsed. What the file or the machine refuses is thrown (StoreError,
  // PlatformError); what a rule refuses has been told when this returns Refused.
  virtual ExitStatus Run(Session& session) = 0;
};

}  // namespace corvanta::inline cli
