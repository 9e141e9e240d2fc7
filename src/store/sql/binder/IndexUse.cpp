#include "store/sql/binder/IndexUse.h"

#include "platform/TextCase.h"

#include <string_view>
#include <vector>

namespace corvanta::jet {
namespace {

bool IsZero(const Expr& expr) {
  return expr.kind == ExprKind::Literal && expr.parameter == 0 &&
         expr.token.kind == TokenKind::Number && expr.token.text == "0";
}

bool IsZeroed(const Expr& term) {
  const Expr& column = *term.args[0];
  return column.kind == ExprKind::Column && column.type == ValueType::Integer &&
         IsZero(*term.args[1]);
}

// A column that must have one value, which is looked up by it. A 1 may be a mark as well, but not
// where the column is a key, whose names end so.
bool IsLookedUp(const Expr& term) {
  const Expr& column = *term.args[0];
  const Expr& value = *term.args[1];
  if (column.kind != ExprKind::Column || value.kind != ExprKind::Literal) return false;
  if (value.parameter > 0) return true;
  constexpr std::size_t kEnd = 2;
  const std::string& name = column.name;
  return !IsZero(value) && name.size() > kEnd &&
         EqualFolded(std::string_view(name).substr(name.size() - kEnd), "ID");
}

// The comparisons with "=" that all rows must meet.
void Collect(Expr& expr, std::vector<Expr*>& equalities) {
  if (expr.kind != ExprKind::Binary) return;
  if (expr.op == Word::And) {
    Collect(*expr.args[0], equalities);
    Collect(*expr.args[1], equalities);
  } else if (expr.op == Word::Equal) {
    equalities.push_back(&expr);
  }
}

}  // namespace

void KeepZerosOffIndexes(Expr& condition) {
  std::vector<Expr*> equalities;
  Collect(condition, equalities);
  for (const Expr* term : equalities) {
    if (IsLookedUp(*term)) return;
  }
  for (const Expr* term : equalities) {
    if (IsZeroed(*term)) term->args[0]->offIndexes = true;
  }
}

}  // namespace corvanta::jet
