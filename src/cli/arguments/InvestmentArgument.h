#pragma once

#include "cli/arguments/NamedItem.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Argument;
class Parser;

// An investment, named by its name, its symbol, or # and its key.
struct InvestmentArgument {
  std::string name;

  Argument* Declare(Parser& command);
  // nullopt, told, when there is none of that name.
  [[nodiscard]] std::optional<NamedItem> Find(clsCorvanta& ledger, Session& session) const;
};

// All investments, by name.
[[nodiscard]] std::vector<NamedItem> InvestmentItems(clsCorvanta& ledger);

}  // namespace corvanta::inline cli
