#pragma once

#include "cli/Command.h"
#include "cli/arguments/ScheduleArgument.h"

#include <string>

namespace corvanta::inline ledger {
class SchedulePosting;
class clsCorvanta;
}  // namespace corvanta::inline ledger

namespace corvanta::inline cli {

// post: the posting of what is due, or of one payment; post --skip passes over one.
class PostCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus PostOne(clsCorvanta& ledger, SchedulePosting& posting, Session& session) const;

  ScheduleArgument schedule_;
  std::string due_;
  bool skips_ = false;
};

}  // namespace corvanta::inline cli
