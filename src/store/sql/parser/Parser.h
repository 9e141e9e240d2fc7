#pragma once

#include "store/sql/parser/Ast.h"

#include <string_view>
#include <vector>

namespace corvanta::jet {

// Reads one statement (a semicolon may end it) from its tokens. Throws StoreError(Sql) that names
// the place. Nesting is limited, so that no text exhausts the stack.
[[nodiscard]] Statement Parse(std::string_view sql, const std::vector<Token>& tokens);

}  // namespace corvanta::jet
