#pragma once

#include "ledger/investments/InvestmentRecord.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// The options that say what an investment is; what is not given is left as it is.
class InvestFields {
 public:
  // `isNew`: those that a new investment cannot do without are required.
  void Declare(Parser& command, bool isNew);
  // Puts what was given into the record; false, told, when there is no such currency or source.
  [[nodiscard]] bool Fill(InvestmentRecord& record, clsCorvanta& ledger, Session& session) const;

 private:
  std::optional<std::string> symbol_;
  std::optional<std::string> currency_;
  std::optional<std::string> quoteCurrency_;
  std::optional<std::string> source_;
  std::optional<std::string> conversion_;
  std::optional<std::string> description_;
};

}  // namespace corvanta::inline cli
