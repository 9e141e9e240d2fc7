#pragma once

#include "store/sql/parser/Ast.h"

#include <cstddef>
#include <vector>

namespace corvanta::jet {

// What becomes of a literal of a statement.
struct LiteralUse {
  bool isBound = false;  // a value that the statement is run with; otherwise part of what it does
  bool isNegated = false;
};

struct LiteralUses {
  std::vector<LiteralUse> uses;  // one for each literal, in their order
  // False with a list of literals behind IN: such a statement is hardly ever met again.
  bool isReusable = true;
};

// Tells the values of a statement from what it does with them. Compared values, and those that
// stand alone in VALUES and SET, are bound; arguments, results and compared 0, 1 and -1 (marks, by
// which the library chooses its way) stay where they are.
[[nodiscard]] LiteralUses UsesOf(const Statement& statement, std::size_t literals);

}  // namespace corvanta::jet
