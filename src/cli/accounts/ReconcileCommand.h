#pragma once

#include "cli/Command.h"
#include "cli/arguments/AccountArgument.h"
#include "reconcile/Reconciliation.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline cli {

// reconcile ACCOUNT [--tick ID,ID] ...: balances an account against a statement. Without a choice
// of rows it shows the totals and writes nothing.
class ReconcileCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  [[nodiscard]] bool IsChoosing() const;
  // False when one of the keys is not among the rows, which has been told then.
  [[nodiscard]] bool Choose(Reconciliation& balancing, Session& session) const;
  [[nodiscard]] bool SetTicks(Reconciliation& balancing, const std::vector<std::int64_t>& keys,
                              bool isTicked, Session& session) const;
  void Print(const AccountRow& account, const ReconcileTotals& totals, Session& session) const;
  // False when the statement's balance is another one, which has been told then.
  [[nodiscard]] bool IsBalanced(const ReconcileTotals& totals, const std::string& currency,
                                Session& session) const;

  AccountArgument account_;
  std::vector<std::int64_t> tick_;
  std::vector<std::int64_t> untick_;
  bool tickAll_ = false;
  bool showAll_ = false;
  bool dryRun_ = false;
  std::string balance_;  // empty when the statement's is not given
};

}  // namespace corvanta::inline cli
