#pragma once

#include "store/sql/binder/ExprBinder.h"
#include "store/sql/parser/Ast.h"

namespace corvanta::jet {

// Binds a SELECT, INSERT, UPDATE or DELETE: finds its tables and columns in the catalog, writes
// their names as these are defined into the tree and finds the type of every expression. DDL goes
// another way. Throws StoreError(Sql) that names the place.
void Bind(const BinderContext& context, Statement& statement);

// The one table of a bound statement whose rows can be written back (of a SELECT) or are written;
// empty when there is none.
[[nodiscard]] std::string TableOf(const Statement& statement);

}  // namespace corvanta::jet
