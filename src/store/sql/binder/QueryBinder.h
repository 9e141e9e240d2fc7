#pragma once

#include "store/sql/binder/ExprBinder.h"
#include "store/sql/binder/Scope.h"
#include "store/sql/parser/Ast.h"

namespace corvanta::jet {

// Binds a query and all within it: its tables, its result's columns (a star becomes the columns it
// stands for) and its expressions. `outer` holds the sources around a query in brackets, nullptr at
// the top. Throws StoreError(Sql).
void BindSelect(const BinderContext& context, Select& select, const Scope* outer);

}  // namespace corvanta::jet
