#pragma once

#include "cli/NamedItem.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// An investment, named by its name, its symbol, or # and its key.
struct InvestmentArgument {
  std::string name;

  CLI::Option* Declare(CLI::App& command);
  // nullopt, told, when there is none of that name.
  [[nodiscard]] std::optional<NamedItem> Find(clsCorvanta& ledger, Session& session) const;
};

// All investments, by name.
[[nodiscard]] std::vector<NamedItem> InvestmentItems(clsCorvanta& ledger);

}  // namespace corvanta::inline cli
