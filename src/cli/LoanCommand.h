#pragma once

#include "cli/Command.h"
#include "tools/LoanCalculator.h"

#include <string>

namespace corvanta::inline cli {

// loan AMOUNT RATE MONTHS and mortgage AMOUNT RATE YEARS [EXPENSE]: what they cost. Needs no data
// file.
class LoanCommand : public Command {
 public:
  explicit LoanCommand(LoanMode mode) : mode_(mode) {}

  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  [[nodiscard]] bool IsMortgage() const { return mode_ == LoanMode::Mortgage; }
  [[nodiscard]] LoanForm Form() const;
  void PrintLines(const LoanPlan& plan, Session& session) const;
  void PrintFigures(const LoanPlan& plan, Session& session) const;
  void PrintTable(const LoanPlan& plan, Session& session) const;

  LoanMode mode_;
  std::string amount_;
  std::string rate_;
  std::string period_;
  std::string expense_ = "0";
  std::string extra_ = "0";
  std::string extraOnce_ = "0";
  std::string extraPeriod_ = "1";
  bool table_ = false;
};

}  // namespace corvanta::inline cli
