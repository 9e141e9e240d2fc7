#pragma once

#include "invest/InvestTransEditor.h"

#include <optional>
#include <string>

namespace corvanta::inline cli {

class Parser;
class Session;

// The options that say what an investment transaction is; what is not given is left as it is.
class InvestTransFields {
 public:
  // `isNew`: the action stands without an option, and what a new one cannot do without is required.
  void Declare(Parser& command, bool isNew);
  // Puts what was given into the form. The total is what the figures come to, unless it is given.
  // False, told, for a figure that the action has not, and for an unknown account or investment.
  [[nodiscard]] bool Fill(InvestTransForm& form, const InvestTransEditor& editor,
                          clsCorvanta& ledger, Session& session) const;

 private:
  [[nodiscard]] bool FillNames(InvestTransForm& form, clsCorvanta& ledger, Session& session) const;
  [[nodiscard]] bool FillFigures(InvestTransForm& form, const InvestTransEditor& editor,
                                 Session& session) const;

  std::optional<std::string> action_;
  std::optional<std::string> account_;
  std::optional<std::string> investment_;
  std::optional<std::string> dividend_;
  std::optional<std::string> shares_;
  std::optional<std::string> price_;
  std::optional<std::string> commission_;
  std::optional<std::string> total_;
  std::optional<std::string> date_;
  std::optional<std::string> status_;
  std::optional<std::string> description_;
};

}  // namespace corvanta::inline cli
