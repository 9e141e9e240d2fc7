#pragma once

#include "store/jet/Ast.h"
#include "store/jet/ExprWriter.h"

#include <string>
#include <vector>

namespace corvanta::jet {

// A statement in the library's SQL, with the columns of its rows.
struct WrittenStatement {
  std::string sql;
  std::vector<ScopeColumn> columns;
  std::string table;  // the one table read (updatable rows) or written; empty for none
};

// Writes a SELECT, INSERT, UPDATE or DELETE; DDL goes another way. Throws StoreError(Sql).
[[nodiscard]] WrittenStatement WriteStatement(const WriterContext& context,
                                              const Statement& statement);

}  // namespace corvanta::jet
