#pragma once

#include "store/sql/Catalog.h"
#include "store/sql/parser/Ast.h"

#include <map>
#include <string>

namespace corvanta::jet {

// The tables that a query reads, by the names that they have in it.
using TablesByName = std::map<std::string, const TableDef*>;

// Zero stands for none, and most rows have it: an index in which it is looked for leads to nearly
// all rows, one by one, where going through them would take a fraction of the time. The library
// takes every value for a rare one, so in a bound condition each whole-number column that must be 0
// is marked to be kept off the indexes. It is left as it is where it narrows down what an index
// finds by another column that the condition compares with values, and where it is a row's own key.
// One that is a choice among others ("Parent = 0 OR ...") is marked in any case.
void KeepZerosOffIndexes(Expr& condition, const TablesByName& tables);

}  // namespace corvanta::jet
