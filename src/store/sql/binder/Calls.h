// The dialect's functions: what they are called with, what they give and how they are written.
#pragma once

#include "store/sql/parser/ValueType.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace corvanta::jet {

// Functions that a piece of SQL around their arguments cannot express, or whose type depends on
// these.
enum class CallKind : std::uint8_t { Plain, Iif, IsNull, Nz, SameType, CountRows };

struct CallForm {
  std::string_view name;  // folded
  std::size_t arguments;
  ValueType type;  // what it gives; of Iif, Nz and SameType that depends on the arguments
  // In the library's SQL: $1, $2 ... stand for the arguments, and a capital T before the number for
  // the argument as text. Of SameType the library's name for it.
  std::string_view sql;
  CallKind kind = CallKind::Plain;
};

// The form with this many arguments; nullptr when there is none. `isKnown` tells whether there is
// one of that name with another number. Names are matched without regard to case.
[[nodiscard]] const CallForm* FindCall(std::string_view name, std::size_t arguments, bool& isKnown);
// COUNT(*).
[[nodiscard]] const CallForm& CountRowsCall();

}  // namespace corvanta::jet
