#pragma once

#include <cstdint>
#include <span>

namespace corvanta {

// Keys of the rows that an operation is about.
using Keys = std::span<const std::int64_t>;

}  // namespace corvanta
