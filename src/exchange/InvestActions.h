// The investment actions of QIF.
#pragma once

#include "ledger/InvestmentRecord.h"

#include <string_view>

namespace corvanta {

// `action` in lower case; one that is not known adds shares.
[[nodiscard]] InvestAction InvestActionOf(std::string_view action);
// Whether a record without a security takes money out of the account.
[[nodiscard]] bool TakesCashOut(std::string_view action);

}  // namespace corvanta
