#pragma once

#include <string>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline ledger {

struct RegisterRow;

// What an investment transaction says of itself in a line of the register: "Buy 100 at 3.16"; empty
// for an ordinary row. Units and price have the decimals that they need.
[[nodiscard]] std::string TradeText(const RegisterRow& row, const Locale& locale);

}  // namespace corvanta::inline ledger
