#pragma once

#include <string>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline reports {

// The currency that plans are kept in, whatever a report is of and shown in: `own`, that of the
// person, where an open account has it, otherwise the first one that an open account has. Throws
// StoreError.
[[nodiscard]] std::string PlanCurrency(Connection& store, const std::string& own);

}  // namespace corvanta::inline reports
