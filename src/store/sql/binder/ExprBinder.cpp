#include "store/sql/binder/ExprBinder.h"

#include "platform/TextCase.h"
#include "store/sql/binder/Calls.h"
#include "store/sql/binder/QueryBinder.h"
#include "store/sql/lexer/Lexer.h"

namespace corvanta::jet {
namespace {

ValueType ArgumentType(const Expr& expr, std::size_t argument) {
  return AsValue(expr.args[argument]->type);
}

ValueType TypeOfSum(ValueType left, ValueType right) {
  if (ComparesText(left, right)) return ValueType::Text;
  if ((left == ValueType::Date && IsNumeric(right)) ||
      (right == ValueType::Date && IsNumeric(left))) {
    return ValueType::Date;
  }
  const ValueType type = Unify(left, right);
  return type == ValueType::Text || type == ValueType::Null ? ValueType::Double : type;
}

ValueType TypeOfDifference(ValueType left, ValueType right) {
  if (left == ValueType::Date) {
    return right == ValueType::Date ? ValueType::Integer : ValueType::Date;
  }
  return left == ValueType::Integer && right == ValueType::Integer ? ValueType::Integer
                                                                   : ValueType::Double;
}

ValueType TypeOfParameter(ParameterKind kind) {
  switch (kind) {
    case ParameterKind::Integer:
      return ValueType::Integer;
    case ParameterKind::Number:
      return ValueType::Double;
    case ParameterKind::Text:
      return ValueType::Text;
    case ParameterKind::Date:
      return ValueType::Date;
  }
  return ValueType::Null;
}

}  // namespace

bool ComparesText(ValueType a, ValueType b) {
  return (a == ValueType::Text && (b == ValueType::Text || b == ValueType::Null)) ||
         (b == ValueType::Text && a == ValueType::Null);
}

void ExprBinder::Fail(const Expr& expr, const std::string& what) const {
  FailAt(context_.sql, expr.token.offset, what);
}

void ExprBinder::Bind(Expr& expr) const {
  BindParts(expr);
  switch (expr.kind) {
    case ExprKind::Null:
      return;
    case ExprKind::True:
    case ExprKind::False:
      expr.type = ValueType::Integer;
      return;
    case ExprKind::Literal:
      return BindLiteral(expr);
    case ExprKind::Column:
      return BindColumn(expr);
    case ExprKind::AllColumns:
      Fail(expr, "a star cannot stand here");
    case ExprKind::Negate:
      expr.type =
          ArgumentType(expr, 0) == ValueType::Integer ? ValueType::Integer : ValueType::Double;
      return;
    case ExprKind::Binary:
      expr.type = TypeOfBinary(expr);
      return;
    case ExprKind::Call:
      return BindCall(expr);
    case ExprKind::Not:
    case ExprKind::IsNull:
    case ExprKind::Between:
    case ExprKind::In:
    case ExprKind::Exists:
      expr.type = ValueType::Bool;
      return;
    case ExprKind::Subquery:
      expr.type = expr.select->columns[0].type;
      return;
  }
}

void ExprBinder::BindParts(Expr& expr) const {
  const bool hasStar = expr.kind == ExprKind::Call && !expr.args.empty() &&
                       expr.args[0]->kind == ExprKind::AllColumns;
  if (!hasStar) {
    for (const ExprPtr& arg : expr.args) Bind(*arg);
  }
  if (expr.select) BindQuery(expr);
}

void ExprBinder::BindQuery(Expr& expr) const {
  BindSelect(context_, *expr.select, &scope_);
  if (expr.kind == ExprKind::Exists || expr.select->columns.size() == 1) return;
  Fail(expr, expr.kind == ExprKind::In ? "the query behind IN has one column"
                                       : "a query used as a value has one column");
}

void ExprBinder::BindLiteral(Expr& expr) const {
  const Token& token = expr.token;
  expr.parameter = context_.numbers[token.literal];
  if (expr.parameter > 0) {
    const auto& parameter = context_.parameters[static_cast<std::size_t>(expr.parameter - 1)];
    expr.type = TypeOfParameter(parameter.kind);
  } else if (token.kind == TokenKind::Text) {
    expr.type = ValueType::Text;
  } else if (token.kind == TokenKind::Date) {
    if (IsoFromLiteral(token.text).empty()) Fail(expr, "there is no such date");
    expr.type = ValueType::Date;
  } else {
    const bool isWhole = token.text.find_first_of(".eE") == std::string_view::npos;
    expr.type = isWhole ? ValueType::Integer : ValueType::Double;
  }
}

void ExprBinder::BindColumn(Expr& expr) const {
  ResolvedColumn found;
  switch (scope_.Resolve(expr.qualifier, expr.name, found)) {
    case Scope::Result::Found:
      expr.qualifier = found.source->name;
      expr.name = found.column->name;
      expr.type = found.column->type;
      expr.isCounter = found.column->kind == ColumnKind::Counter;
      return;
    case Scope::Result::Ambiguous:
      Fail(expr, "several tables of the statement have a column " + expr.name +
                     "; write the table's name before it");
    case Scope::Result::Unknown:
      break;
  }
  if (expr.qualifier.empty() && expr.token.kind == TokenKind::Name) {
    const bool isTrue = EqualFolded(expr.name, "true");
    if (isTrue || EqualFolded(expr.name, "false")) {
      expr.kind = isTrue ? ExprKind::True : ExprKind::False;
      expr.type = ValueType::Integer;
      return;
    }
  }
  Fail(expr,
       "there is no column " + (expr.qualifier.empty() ? "" : expr.qualifier + ".") + expr.name);
}

ValueType ExprBinder::TypeOfBinary(const Expr& expr) {
  const ValueType left = ArgumentType(expr, 0);
  const ValueType right = ArgumentType(expr, 1);
  switch (expr.op) {
    case Word::Ampersand:
      return ValueType::Text;
    case Word::Plus:
      return TypeOfSum(left, right);
    case Word::Minus:
      return TypeOfDifference(left, right);
    case Word::Star:
      return left == ValueType::Integer && right == ValueType::Integer ? ValueType::Integer
                                                                       : ValueType::Double;
    case Word::Slash:
    case Word::Caret:
      return ValueType::Double;
    case Word::Backslash:
    case Word::Mod:
      return ValueType::Integer;
    default:
      return ValueType::Bool;
  }
}

void ExprBinder::BindCall(Expr& expr) const {
  if (!expr.args.empty() && expr.args[0]->kind == ExprKind::AllColumns) {
    expr.call = &CountRowsCall();
    expr.type = expr.call->type;
    if (!EqualFolded(expr.name, expr.call->name)) Fail(expr, "only COUNT takes a star");
    return;
  }
  bool isKnown = false;
  expr.call = FindCall(expr.name, expr.args.size(), isKnown);
  if (expr.call == nullptr) {
    Fail(expr, isKnown ? expr.name + " has another number of arguments"
                       : "there is no function " + expr.name);
  }
  switch (expr.call->kind) {
    case CallKind::Iif:
      expr.type = Unify(ArgumentType(expr, 1), ArgumentType(expr, 2));
      break;
    case CallKind::Nz:
      expr.type = Unify(ArgumentType(expr, 0), ArgumentType(expr, 1));
      break;
    case CallKind::SameType:
      expr.type = ArgumentType(expr, 0);
      break;
    default:
      expr.type = expr.call->type;
      break;
  }
}

}  // namespace corvanta::jet
