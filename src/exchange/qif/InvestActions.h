// The investment actions of QIF.
#pragma once

#include "ledger/investments/InvestmentRecord.h"

#include <string_view>

namespace corvanta::inline exchange {

// `action` in lower case; one that is not known adds shares.
[[nodiscard]] InvestAction InvestActionOf(std::string_view action);
// Whether a record without a security takes money out of the account.
[[nodiscard]] bool IsCashOut(std::string_view action);

}  // namespace corvanta::inline exchange
