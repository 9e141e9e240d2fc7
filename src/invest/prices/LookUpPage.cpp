#include "invest/prices/LookUpPage.h"

#include "platform/Opener.h"

namespace corvanta::inline invest {

std::optional<Warning> OpenLookUpPage(const std::optional<std::string>& address, Opener& opener) {
  const auto refused = [](const std::string& text) {
    return Warning{"Lookup Warning", text, "cmbDataSource"};
  };
  if (!address) return refused("You need to select a Data Source");
  if (address->empty()) return refused("This Data Source has no page to look symbols up");
  if (opener.Open(*address)) return std::nullopt;
  return refused("No browser could be started for " + *address +
                 ". Open the address in a browser of your own.");
}

}  // namespace corvanta::inline invest
