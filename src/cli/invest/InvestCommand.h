#pragma once

#include "cli/Command.h"
#include "cli/invest/InvestFields.h"
#include "cli/invest/InvestTransactions.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// invest list, add, edit and delete: what can be held. invest transaction: what was done with it.
class InvestCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  static ExitStatus List(clsCorvanta& ledger, Session& session);
  ExitStatus Add(clsCorvanta& ledger, Session& session) const;
  ExitStatus Edit(clsCorvanta& ledger, Session& session) const;
  ExitStatus Delete(clsCorvanta& ledger, Session& session) const;

  Parser* add_ = nullptr;
  Parser* edit_ = nullptr;
  Parser* delete_ = nullptr;
  std::string name_;  // the item, or the name of a new one
  std::optional<std::string> newName_;
  InvestFields added_;
  InvestFields edited_;
  InvestTransactions transactions_;
};

}  // namespace corvanta::inline cli
