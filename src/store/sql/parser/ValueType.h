#pragma once

#include <cstdint>

namespace corvanta::jet {

// What kind of value an expression gives, as far as it is known before the statement runs.
enum class ValueType : std::uint8_t { Null, Bool, Integer, Double, Date, Text };

}  // namespace corvanta::jet
