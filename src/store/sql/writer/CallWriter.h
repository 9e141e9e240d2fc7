#pragma once

#include "store/sql/writer/ExprWriter.h"

namespace corvanta::jet {

// Writes a call of one of the dialect's functions.
[[nodiscard]] Written WriteCall(const Expr& expr);

}  // namespace corvanta::jet
