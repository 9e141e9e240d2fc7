#pragma once

#include <string_view>

namespace corvanta::inline platform {

// How many decimals amounts of a currency have, by its ISO 4217 code in any case: what its smallest
// unit says, not how prices are usually rounded. Two for a code that is unknown or empty.
[[nodiscard]] int CurrencyDecimals(std::string_view code);

}  // namespace corvanta::inline platform
