// A name that a person typed, as statements write and compare it: without the blanks around it.
#pragma once

#include "platform/TextCase.h"
#include "store/sql/SqlText.h"

#include <string>
#include <string_view>

namespace corvanta::inline ledger {

[[nodiscard]] inline std::string SqlName(std::string_view name) {
  return SqlText(Trim(name));
}
// For what is compared with lcase(...).
[[nodiscard]] inline std::string SqlLowerName(std::string_view name) {
  return SqlText(ToLower(Trim(name)));
}

}  // namespace corvanta::inline ledger
