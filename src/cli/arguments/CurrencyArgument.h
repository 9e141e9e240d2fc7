#pragma once

#include <cstdint>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Session;

// Puts the key of the currency of that code, in any case, into `currencyId`; false, told, when
// there is none. Throws StoreError.
[[nodiscard]] bool FindCurrency(clsCorvanta& ledger, const std::string& code,
                                std::int64_t& currencyId, Session& session);

}  // namespace corvanta::inline cli
