#pragma once

#include "cli/Command.h"
#include "cli/arguments/ScheduleArgument.h"
#include "cli/arguments/ScheduleArguments.h"
#include "cli/transactions/SplitLines.h"

#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// schedule list, add, edit, split, copy, delete and dates: the recurring transactions.
class ScheduleCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  void DeclareChanges(Parser& command);
  static ExitStatus List(clsCorvanta& ledger, Session& session);
  ExitStatus Add(clsCorvanta& ledger, Session& session) const;
  ExitStatus Edit(clsCorvanta& ledger, Session& session) const;
  ExitStatus Split(clsCorvanta& ledger, Session& session) const;
  ExitStatus Copy(clsCorvanta& ledger, Session& session) const;
  ExitStatus Delete(clsCorvanta& ledger, Session& session) const;
  ExitStatus Dates(clsCorvanta& ledger, Session& session) const;

  Parser* command_ = nullptr;
  Parser* add_ = nullptr;
  Parser* edit_ = nullptr;
  Parser* split_ = nullptr;
  Parser* copy_ = nullptr;
  Parser* delete_ = nullptr;
  Parser* dates_ = nullptr;
  ScheduleArgument schedule_;
  std::string type_;
  ScheduleArguments added_;
  ScheduleArguments edited_;
  SplitLines lines_;
  std::string posted_;
  std::string until_;
};

}  // namespace corvanta::inline cli
