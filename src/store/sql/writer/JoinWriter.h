#pragma once

#include "store/sql/parser/Ast.h"

#include <string>

namespace corvanta::jet {

struct WrittenSources {
  std::string sql;      // behind FROM
  std::string filters;  // conditions of inner joins, for WHERE; empty for none
};

// Writes the tables of a bound FROM. Joins in brackets are taken out of them and RIGHT JOIN is
// turned round, so that the library sees one flat row of tables, which it can plan, and only LEFT
// JOINs.
[[nodiscard]] WrittenSources WriteFrom(const Source& from);

}  // namespace corvanta::jet
