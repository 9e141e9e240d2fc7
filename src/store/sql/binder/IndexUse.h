#pragma once

#include "store/sql/parser/Ast.h"

namespace corvanta::jet {

// Zero stands for none, and most rows have it: an index in which it is looked for leads to nearly
// all rows, one by one, where going through them would take a fraction of the time. The library
// takes every value for a rare one, so in a bound condition each whole-number column that must be 0
// is marked to be kept off the indexes. Behind another column that is compared with a value it does
// narrow down what an index of both finds, and is left as it is.
void KeepZerosOffIndexes(Expr& condition);

}  // namespace corvanta::jet
