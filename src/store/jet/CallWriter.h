#pragma once

#include "store/jet/ExprWriter.h"

namespace corvanta::jet {

// Writes a call of one of the dialect's functions. Year, month and the like are written out rather
// than called, for a call back per row costs more than the query.
[[nodiscard]] Written WriteCall(const ExprWriter& writer, const Expr& expr);

}  // namespace corvanta::jet
