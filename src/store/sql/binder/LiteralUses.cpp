#include "store/sql/binder/LiteralUses.h"

#include <string_view>

namespace corvanta::jet {
namespace {

bool IsMark(const Expr& literal) {
  if (literal.token.kind != TokenKind::Number) return false;
  return literal.token.text == "1" || (literal.token.text == "0" && !literal.negated);
}

class UseFinder {
 public:
  explicit UseFinder(LiteralUses& found) : found_(found) {}

  void VisitStatement(const Statement& statement) {
    if (const auto* select = std::get_if<std::unique_ptr<Select>>(&statement)) {
      VisitSelect(**select);
    } else if (const auto* insert = std::get_if<Insert>(&statement)) {
      for (const ExprPtr& value : insert->values) Assign(*value);
      if (insert->select) VisitSelect(*insert->select);
    } else if (const auto* update = std::get_if<Update>(&statement)) {
      for (const Assignment& assignment : update->assignments) Assign(*assignment.value);
      VisitIf(update->where);
    } else if (const auto* remove = std::get_if<Delete>(&statement)) {
      VisitIf(remove->where);
    }
  }

 private:
  void VisitIf(const ExprPtr& expr) {
    if (expr) Visit(*expr);
  }

  void VisitSelect(const Select& select) {
    for (const SelectItem& item : select.items) Visit(*item.expr);
    if (select.from) VisitSource(*select.from);
    VisitIf(select.where);
    for (const ExprPtr& key : select.groupBy) Visit(*key);
    VisitIf(select.having);
    for (const OrderItem& item : select.orderBy) Visit(*item.expr);
    if (select.unionWith) VisitSelect(*select.unionWith);
  }

  void VisitSource(const Source& source) {
    if (source.query) VisitSelect(*source.query);
    if (!source.left) return;
    VisitSource(*source.left);
    VisitSource(*source.right);
    VisitIf(source.on);
  }

  void Visit(const Expr& expr) {
    const bool compares =
        expr.kind == ExprKind::Between ||
        (expr.kind == ExprKind::Binary &&
         (expr.op == Word::Like || (expr.op >= Word::Equal && expr.op <= Word::GreaterEqual)));
    for (const ExprPtr& arg : expr.args) {
      if (arg->kind != ExprKind::Literal) {
        Visit(*arg);
      } else if (compares && !IsMark(*arg)) {
        Bind(*arg);
      } else if (expr.kind == ExprKind::In) {
        found_.isReusable = false;
      }
    }
    if (expr.select) VisitSelect(*expr.select);
  }

  void Assign(const Expr& value) {
    if (value.kind == ExprKind::Literal) {
      Bind(value);
    } else {
      Visit(value);
    }
  }

  void Bind(const Expr& literal) { found_.uses[literal.token.literal] = {true, literal.negated}; }

  LiteralUses& found_;
};

}  // namespace

LiteralUses UsesOf(const Statement& statement, std::size_t literals) {
  LiteralUses found;
  found.uses.resize(literals);
  UseFinder(found).VisitStatement(statement);
  return found;
}

}  // namespace corvanta::jet
