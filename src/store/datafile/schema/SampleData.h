#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// The sample account with payees, investments, transactions and schedules, one INSERT per row.
// `currencyId` is the user's own currency, 0 when the file does not know it.
[[nodiscard]] std::vector<std::string> SampleDataStatements(Date today, std::int64_t currencyId);

// Whether the sample account is the only one of the data file. Throws StoreError.
[[nodiscard]] bool HoldsSampleAlone(Connection& store);

}  // namespace corvanta::inline datafile
