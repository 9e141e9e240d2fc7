#include "store/sql/binder/IndexUse.h"

#include <algorithm>
#include <vector>

namespace corvanta::jet {
namespace {

bool IsZeroed(const Expr& term) {
  if (term.kind != ExprKind::Binary) return false;
  const Expr& column = *term.args[0];
  const Expr& value = *term.args[1];
  return column.type == ValueType::Integer && !column.isCounter && value.parameter == 0 &&
         value.token.kind == TokenKind::Number && value.token.text == "0";
}

bool IsLiteral(const ExprPtr& expr) {
  return expr->kind == ExprKind::Literal;
}

// The columns that all rows must have one of some values in: "column = value", "column IN (...)".
void Collect(Expr& expr, std::vector<Expr*>& terms) {
  if (expr.kind == ExprKind::Binary && expr.op == Word::And) {
    Collect(*expr.args[0], terms);
    Collect(*expr.args[1], terms);
    return;
  }
  const bool isEqual = expr.kind == ExprKind::Binary && expr.op == Word::Equal;
  const bool isIn = expr.kind == ExprKind::In && !expr.negated && !expr.select;
  if ((isEqual || isIn) && expr.args.size() > 1 && expr.args[0]->kind == ExprKind::Column &&
      std::all_of(expr.args.begin() + 1, expr.args.end(), IsLiteral)) {
    terms.push_back(&expr);
  }
}

// Where one of several may hold, nearly all rows come by the one that asks for 0.
void KeepOff(Expr& expr) {
  if (IsZeroed(expr)) {
    expr.args[0]->offIndexes = true;
  } else if (expr.kind == ExprKind::Binary && (expr.op == Word::And || expr.op == Word::Or)) {
    for (const ExprPtr& arg : expr.args) KeepOff(*arg);
  }
}

void KeepChoicesOff(Expr& expr) {
  if (expr.kind != ExprKind::Binary) return;
  if (expr.op == Word::Or) return KeepOff(expr);
  if (expr.op != Word::And) return;
  for (const ExprPtr& arg : expr.args) KeepChoicesOff(*arg);
}

// Whether the index finds rows by both columns: by the one that it begins with, narrowed down by
// the other.
bool FindsByBoth(const IndexDef& index, const std::string& first, const std::string& other) {
  return !index.columns.empty() && index.columns.front() == first &&
         std::ranges::find(index.columns, other) != index.columns.end();
}

bool FindsByBoth(const TableDef& table, const std::string& a, const std::string& b) {
  const auto finds = [&](const IndexDef& index) {
    return FindsByBoth(index, a, b) || FindsByBoth(index, b, a);
  };
  return std::ranges::any_of(table.indexes, finds) || std::ranges::any_of(table.accessPaths, finds);
}

}  // namespace

void KeepZerosOffIndexes(Expr& condition, const TablesByName& tables) {
  KeepChoicesOff(condition);
  std::vector<Expr*> terms;
  Collect(condition, terms);
  for (const Expr* term : terms) {
    if (!IsZeroed(*term)) continue;
    Expr& column = *term->args[0];
    const auto table = tables.find(column.qualifier);
    const bool narrows =
        table != tables.end() && std::ranges::any_of(terms, [&](const Expr* other) {
          const Expr& by = *other->args[0];
          return other != term && by.qualifier == column.qualifier && by.name != column.name &&
                 FindsByBoth(*table->second, by.name, column.name);
        });
    column.offIndexes = !narrows;
  }
}

}  // namespace corvanta::jet
