#pragma once

#include "store/sql/parser/Ast.h"

#include <string>

namespace corvanta::jet {

// Writes a bound SELECT in the library's SQL.
[[nodiscard]] std::string WriteQuery(const Select& select);

}  // namespace corvanta::jet
