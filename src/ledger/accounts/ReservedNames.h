// Names that stand for something else, so that no account can have them.
#pragma once

#include <string_view>

namespace corvanta::inline ledger {

// Before the other account's name in the category of an imported row that is half of a transfer:
// "Account:Savings".
inline constexpr std::string_view kTransferMark = "Account:";
// In the place of one account, the accounts that a file names.
inline constexpr std::string_view kEveryAccount = "<Import All Accounts Automatically>";

}  // namespace corvanta::inline ledger
