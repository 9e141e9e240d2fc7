#pragma once

#include "cli/ExitStatus.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/TransactionsArgument.h"
#include "cli/invest/InvestTransFields.h"

#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// The part of the command invest that is about transactions: list, add, edit, delete.
class InvestTransactions {
 public:
  void Declare(Parser& invest);
  [[nodiscard]] bool IsParsed() const;
  // Whether what was parsed changes the data file.
  [[nodiscard]] bool Writes() const;
  ExitStatus Run(clsCorvanta& ledger, Session& session) const;

 private:
  ExitStatus List(clsCorvanta& ledger, Session& session) const;
  ExitStatus Add(clsCorvanta& ledger, Session& session) const;
  ExitStatus Edit(clsCorvanta& ledger, Session& session) const;
  ExitStatus Delete(clsCorvanta& ledger, Session& session) const;

  Parser* command_ = nullptr;
  Parser* add_ = nullptr;
  Parser* edit_ = nullptr;
  Parser* delete_ = nullptr;
  std::string account_;  // of the list
  std::string investment_;
  PeriodArguments period_;
  StatusArgument status_;
  InvestTransFields added_;
  InvestTransFields edited_;
  TransactionsArgument one_;
  TransactionsArgument several_;
};

}  // namespace corvanta::inline cli
