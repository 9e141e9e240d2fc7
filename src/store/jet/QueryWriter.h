#pragma once

#include "store/jet/Ast.h"
#include "store/jet/ExprWriter.h"
#include "store/jet/Scope.h"

#include <string>
#include <vector>

namespace corvanta::jet {

struct WrittenQuery {
  std::string sql;
  std::vector<ScopeColumn> columns;
  std::string table;  // the one table it reads, when its rows can be written back; else empty
};

// Writes a SELECT. `outer` holds the sources around a query in brackets, nullptr at the top.
[[nodiscard]] WrittenQuery WriteQuery(const WriterContext& context, const Select& select,
                                      const Scope* outer);

}  // namespace corvanta::jet
