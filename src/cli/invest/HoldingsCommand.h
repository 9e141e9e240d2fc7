#pragma once

#include "cli/Command.h"
#include "cli/arguments/Arguments.h"
#include "invest/holdings/Holdings.h"

#include <string>

namespace corvanta::inline cli {

// holdings: what is held of each investment, and what it has earned.
class HoldingsCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  [[nodiscard]] CostMethod Method(Session& session) const;
  void PrintHoldings(const HoldingsList& list, Session& session) const;
  ExitStatus PrintTotals(const HoldingsList& list, clsCorvanta& ledger, Session& session) const;

  std::string account_;
  PeriodArguments period_;
  std::string cost_;
  std::string currency_;
  bool withSold_ = false;
  bool totals_ = false;
};

}  // namespace corvanta::inline cli
