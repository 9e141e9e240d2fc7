#pragma once

#include <cstdint>
#include <span>

namespace corvanta::inline ledger {

// Keys of the rows that an operation is about.
using Keys = std::span<const std::int64_t>;

}  // namespace corvanta::inline ledger
