#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline cli {

// reminders: what is due, or will be soon.
class RemindersCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  std::string until_;
};

}  // namespace corvanta::inline cli
