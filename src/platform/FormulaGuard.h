// Texts of a CSV file that a spreadsheet would run as formulas.
#pragma once

#include <string>
#include <string_view>

namespace corvanta::inline platform {

// With an apostrophe before what begins like a formula; any other text as it is.
[[nodiscard]] std::string GuardFormula(std::string_view text);
// The text that was guarded.
[[nodiscard]] std::string_view UnguardFormula(std::string_view text);

}  // namespace corvanta::inline platform
