#pragma once

#include <string>

namespace corvanta::inline ledger {

// Why something that a person typed is not saved.
struct Warning {
  std::string title;
  std::string text;
  std::string field;  // the control that it is about, by its name; empty for none
};

}  // namespace corvanta::inline ledger
