#pragma once

#include "store/sql/parser/Ast.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::jet {

// How the values of a group's rows become one.
enum class FoldKind : std::uint8_t { Count, Sum, Least, Most, Average };

// A grouped SELECT in two parts, so that its rows can be added up as they come, where the library
// would bring all of them in order first.
struct FoldedQuery {
  std::vector<std::string> values;  // of each row: the keys of its group, then what is folded
  std::string rows;                 // what stands behind the values of the rows: " FROM ..."
  std::size_t keys = 0;
  std::vector<FoldKind> folds;  // one for each value behind the keys
  // What each group gives: the result's columns, and what stands behind the groups' table, which is
  // called g and has the values as c0, c1 ...
  std::string items;
  std::string order;
};

// Nullopt for a SELECT that is not of that kind or may need more values than that, which stays as
// it is. Otherwise its tree is used up.
[[nodiscard]] std::optional<FoldedQuery> WriteFolded(Select& select, std::size_t mostValues);

}  // namespace corvanta::jet
