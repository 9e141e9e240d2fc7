#pragma once

#include "store/jet/ExprWriter.h"

#include <string>

namespace corvanta::jet {

struct WrittenSources {
  std::string sql;      // behind FROM
  std::string filters;  // conditions of inner joins, for WHERE; empty for none
};

// Writes the tables of a FROM and fills `scope` with them. Joins in brackets are taken out of them
// and RIGHT JOIN is turned round, so that the library sees one flat row of tables, which it can
// plan, and only LEFT JOINs.
[[nodiscard]] WrittenSources WriteFrom(const WriterContext& context, const Source& from,
                                       Scope& scope);

}  // namespace corvanta::jet
