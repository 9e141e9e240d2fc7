#pragma once

#include "store/sql/parser/Ast.h"

#include <string>

namespace corvanta::jet {

// Writes a bound SELECT, INSERT, UPDATE or DELETE in the library's SQL; DDL goes another way.
[[nodiscard]] std::string WriteStatement(const Statement& statement);

}  // namespace corvanta::jet
