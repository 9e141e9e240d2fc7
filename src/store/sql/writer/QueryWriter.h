#pragma once

#include "store/sql/parser/Ast.h"

#include <string>

namespace corvanta::jet {

// Writes a bound SELECT in the library's SQL.
[[nodiscard]] std::string WriteQuery(const Select& select);

// Its parts, for whoever puts them together in another way.
// The columns of the result with their names; texts without regard to case where `foldTexts` is
// set.
[[nodiscard]] std::string WriteItems(const Select& select, bool foldTexts);
// " FROM ... WHERE ...": the rows that are read, before they are grouped.
[[nodiscard]] std::string WriteRows(const Select& select);
// " ORDER BY ..." of the whole union; empty without one.
[[nodiscard]] std::string WriteOrder(const Select& select);

}  // namespace corvanta::jet
