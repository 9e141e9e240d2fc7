#pragma once

#include <cstdint>
#include <string>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

class clsCorvanta;

// The code of the account's currency, which says how many decimals its amounts have; empty for no
// account and for an unknown currency. Throws StoreError.
[[nodiscard]] std::string CurrencyOf(clsCorvanta& ledger, std::int64_t accountId);
[[nodiscard]] std::string CurrencyOf(Connection& store, std::int64_t accountId);

}  // namespace corvanta::inline ledger
