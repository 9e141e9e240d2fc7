#include "store/jet/ExprWriter.h"

#include "platform/TextCase.h"
#include "store/jet/CallWriter.h"
#include "store/jet/Functions.h"
#include "store/jet/Lexer.h"
#include "store/jet/QueryWriter.h"

#include <charconv>

namespace corvanta::jet {
namespace {

const char* SignOf(Word op) {
  switch (op) {
    case Word::Equal:
      return " = ";
    case Word::NotEqual:
      return " <> ";
    case Word::Less:
      return " < ";
    case Word::LessEqual:
      return " <= ";
    case Word::Greater:
      return " > ";
    case Word::GreaterEqual:
      return " >= ";
    default:
      return " ? ";
  }
}

// Compared texts are folded anyway, so LCASE and UCASE around them would only keep an index unused.
const Expr& WithoutCase(const Expr& expr) {
  if (expr.kind == ExprKind::Call && expr.args.size() == 1 &&
      (EqualFolded(expr.name, "lcase") || EqualFolded(expr.name, "ucase"))) {
    return WithoutCase(*expr.args[0]);
  }
  return expr;
}

bool ComparesText(ValueType a, ValueType b) {
  return (a == ValueType::Text && (b == ValueType::Text || b == ValueType::Null)) ||
         (b == ValueType::Text && a == ValueType::Null);
}

}  // namespace

std::string Hold(const Written& written, Strength strength) {
  return written.strength >= strength ? written.sql : "(" + written.sql + ")";
}

std::string AsText(const Written& written) {
  switch (written.type) {
    case ValueType::Text:
    case ValueType::Date:
      return Hold(written, Strength::Concat);
    case ValueType::Integer:
      return "CAST(" + written.sql + " AS TEXT)";
    default:
      return "jet_text(" + written.sql + ")";
  }
}

void ExprWriter::Fail(const Expr& expr, const std::string& what) const {
  FailAt(context_.sql, expr.token.offset, what);
}

Written ExprWriter::Write(const Expr& expr) const {
  switch (expr.kind) {
    case ExprKind::Null:
      return {"NULL", Strength::Atom, ValueType::Null};
    case ExprKind::Literal:
    case ExprKind::Parameter:
      return WriteLiteral(expr);
    case ExprKind::Column:
      return WriteColumn(expr);
    case ExprKind::AllColumns:
      Fail(expr, "a star cannot stand here");
    case ExprKind::Not:
      return {"NOT " + Hold(Write(*expr.args[0]), Strength::Not), Strength::Not, ValueType::Bool};
    case ExprKind::Negate: {
      const Written value = WriteValue(*expr.args[0]);
      return {"-" + Hold(value, Strength::Atom), Strength::Collate,
              value.type == ValueType::Integer ? value.type : ValueType::Double};
    }
    case ExprKind::Binary:
      return WriteBinary(expr);
    case ExprKind::Call:
      return WriteCall(*this, expr);
    case ExprKind::IsNull:
      return {Hold(WriteValue(*expr.args[0]), Strength::Add) +
                  (expr.negated ? " IS NOT NULL" : " IS NULL"),
              Strength::Compare, ValueType::Bool};
    case ExprKind::Between:
      return WriteBetween(expr);
    case ExprKind::In:
      return WriteIn(expr);
    case ExprKind::Exists:
      return {"EXISTS (" + WriteQuery(context_, *expr.select, &scope_).sql + ")", Strength::Not,
              ValueType::Bool};
    case ExprKind::Subquery: {
      const WrittenQuery query = WriteQuery(context_, *expr.select, &scope_);
      if (query.columns.size() != 1) Fail(expr, "a query used as a value has one column");
      return {"(" + query.sql + ")", Strength::Atom, query.columns[0].type};
    }
  }
  Fail(expr, "this expression cannot be read");
}

Written ExprWriter::WriteValue(const Expr& expr) const {
  Written written = Write(expr);
  if (written.type != ValueType::Bool) return written;
  return {"-(" + written.sql + ")", Strength::Collate, ValueType::Integer};
}

std::string ExprWriter::WriteSortKey(const Expr& expr) const {
  const Written key = WriteValue(expr);
  if (key.type == ValueType::Text) return Hold(key, Strength::Collate) + " COLLATE " + kCollation;
  // A whole number would be taken for a column's position, bound or under a sign.
  if (expr.kind == ExprKind::Literal || expr.kind == ExprKind::Negate)
    return "(" + key.sql + ") + 0";
  return key.sql;
}

Written ExprWriter::WriteLiteral(const Expr& expr) const {
  const Token& token = expr.token;
  if (token.parameter > 0) {
    const auto& parameter = context_.parameters[static_cast<std::size_t>(token.parameter - 1)];
    ValueType type = ValueType::Integer;
    if (parameter.kind == ParameterKind::Number) type = ValueType::Double;
    if (parameter.kind == ParameterKind::Text) type = ValueType::Text;
    if (parameter.kind == ParameterKind::Date) type = ValueType::Date;
    return {"?" + std::to_string(token.parameter), Strength::Atom, type};
  }
  if (token.kind == TokenKind::Text) {
    return {QuoteText(Unquote(token)), Strength::Atom, ValueType::Text};
  }
  if (token.kind == TokenKind::Date) {
    const std::string iso = IsoFromLiteral(token.text);
    if (iso.empty()) Fail(expr, "there is no such date");
    return {QuoteText(iso), Strength::Atom, ValueType::Date};
  }
  const bool whole = token.text.find_first_of(".eE") == std::string_view::npos;
  return {std::string(token.text), Strength::Atom, whole ? ValueType::Integer : ValueType::Double};
}

Written ExprWriter::WriteColumn(const Expr& expr) const {
  ResolvedColumn found;
  switch (scope_.Resolve(expr.qualifier, expr.name, found)) {
    case Scope::Result::Found:
      return {QuoteName(found.source->name) + "." + QuoteName(found.column->name), Strength::Atom,
              found.column->type};
    case Scope::Result::Ambiguous:
      Fail(expr, "several tables of the statement have a column " + expr.name +
                     "; write the table's name before it");
    case Scope::Result::Unknown:
      break;
  }
  if (expr.qualifier.empty() && expr.token.kind == TokenKind::Name) {
    if (EqualFolded(expr.name, "true")) return {"-1", Strength::Collate, ValueType::Integer};
    if (EqualFolded(expr.name, "false")) return {"0", Strength::Atom, ValueType::Integer};
  }
  Fail(expr,
       "there is no column " + (expr.qualifier.empty() ? "" : expr.qualifier + ".") + expr.name);
}

Written ExprWriter::WriteBinary(const Expr& expr) const {
  switch (expr.op) {
    case Word::Or:
      return WriteChain(expr, Strength::Or, " OR ");
    case Word::And:
      return WriteChain(expr, Strength::And, " AND ");
    case Word::Like:
      return WriteLike(expr);
    case Word::Plus:
      return WriteSum(expr);
    case Word::Ampersand:
      return {"ifnull(" + AsText(WriteValue(*expr.args[0])) + ",'') || ifnull(" +
                  AsText(WriteValue(*expr.args[1])) + ",'')",
              Strength::Concat, ValueType::Text};
    case Word::Minus:
    case Word::Star:
    case Word::Slash:
    case Word::Backslash:
    case Word::Mod:
    case Word::Caret:
      return WriteArithmetic(expr);
    default:
      return WriteComparison(expr);
  }
}

Written ExprWriter::WriteChain(const Expr& expr, Strength strength, const char* sign) const {
  const Strength right = strength == Strength::Or ? Strength::And : Strength::Not;
  return {Hold(Write(*expr.args[0]), strength) + sign + Hold(Write(*expr.args[1]), right), strength,
          ValueType::Bool};
}

Written ExprWriter::WriteComparison(const Expr& expr) const {
  Written left = WriteValue(*expr.args[0]);
  Written right = WriteValue(*expr.args[1]);
  const bool text = ComparesText(left.type, right.type);
  if (text) {
    left = WriteValue(WithoutCase(*expr.args[0]));
    right = WriteValue(WithoutCase(*expr.args[1]));
    right = {Hold(right, Strength::Collate) + " COLLATE " + kCollation, Strength::Collate,
             ValueType::Text};
  }
  return {Hold(left, Strength::Add) + SignOf(expr.op) + Hold(right, Strength::Add),
          Strength::Compare, ValueType::Bool};
}

Written ExprWriter::WriteLike(const Expr& expr) const {
  const std::string call =
      "jet_like(" + WriteValue(*expr.args[1]).sql + ", " + WriteValue(*expr.args[0]).sql + ")";
  if (!expr.negated) return {call, Strength::Atom, ValueType::Bool};
  return {"NOT " + call, Strength::Not, ValueType::Bool};
}

// Adds numbers, joins texts, and moves a date by days; NULL on either side gives NULL.
Written ExprWriter::WriteSum(const Expr& expr) const {
  const Written left = WriteValue(*expr.args[0]);
  const Written right = WriteValue(*expr.args[1]);
  if (ComparesText(left.type, right.type)) {
    return {Hold(left, Strength::Concat) + " || " + Hold(right, Strength::Concat), Strength::Concat,
            ValueType::Text};
  }
  if (left.type == ValueType::Date && IsNumeric(right.type)) {
    return {"jet_dateadd('d', " + right.sql + ", " + left.sql + ")", Strength::Atom,
            ValueType::Date};
  }
  if (right.type == ValueType::Date && IsNumeric(left.type)) {
    return {"jet_dateadd('d', " + left.sql + ", " + right.sql + ")", Strength::Atom,
            ValueType::Date};
  }
  const ValueType type = Unify(left.type, right.type);
  return {Hold(left, Strength::Add) + " + " + Hold(right, Strength::Multiply), Strength::Add,
          type == ValueType::Text || type == ValueType::Null ? ValueType::Double : type};
}

Written ExprWriter::WriteArithmetic(const Expr& expr) const {
  const Written left = WriteValue(*expr.args[0]);
  const Written right = WriteValue(*expr.args[1]);
  const bool whole = left.type == ValueType::Integer && right.type == ValueType::Integer;
  const ValueType type = whole ? ValueType::Integer : ValueType::Double;
  switch (expr.op) {
    case Word::Minus:
      if (left.type == ValueType::Date && right.type == ValueType::Date) {
        return {"jet_datediff('d', " + right.sql + ", " + left.sql + ")", Strength::Atom,
                ValueType::Integer};
      }
      if (left.type == ValueType::Date) {
        return {"jet_dateadd('d', -(" + right.sql + "), " + left.sql + ")", Strength::Atom,
                ValueType::Date};
      }
      return {Hold(left, Strength::Add) + " - " + Hold(right, Strength::Multiply), Strength::Add,
              type};
    case Word::Star:
      return {Hold(left, Strength::Multiply) + " * " + Hold(right, Strength::Concat),
              Strength::Multiply, type};
    case Word::Slash:  // of whole numbers, too, gives a fraction
      return {Hold(left, Strength::Multiply) + " * 1.0 / " + Hold(right, Strength::Concat),
              Strength::Multiply, ValueType::Double};
    case Word::Backslash:
      return {"jet_round(" + left.sql + ", 0) / jet_round(" + right.sql + ", 0)",
              Strength::Multiply, ValueType::Integer};
    case Word::Mod:
      return {"jet_round(" + left.sql + ", 0) % jet_round(" + right.sql + ", 0)",
              Strength::Multiply, ValueType::Integer};
    default:
      return {"jet_power(" + left.sql + ", " + right.sql + ")", Strength::Atom, ValueType::Double};
  }
}

Written ExprWriter::WriteBetween(const Expr& expr) const {
  Written value = WriteValue(*expr.args[0]);
  const Written low = WriteValue(*expr.args[1]);
  const Written high = WriteValue(*expr.args[2]);
  if (ComparesText(value.type, low.type) || ComparesText(value.type, high.type)) {
    value = {Hold(value, Strength::Collate) + " COLLATE " + kCollation, Strength::Collate,
             ValueType::Text};
  }
  return {Hold(value, Strength::Add) + (expr.negated ? " NOT BETWEEN " : " BETWEEN ") +
              Hold(low, Strength::Add) + " AND " + Hold(high, Strength::Add),
          Strength::Compare, ValueType::Bool};
}

Written ExprWriter::WriteIn(const Expr& expr) const {
  Written value = WriteValue(*expr.args[0]);
  std::string list;
  if (expr.select) {
    const WrittenQuery query = WriteQuery(context_, *expr.select, &scope_);
    if (query.columns.size() != 1) Fail(expr, "the query behind IN has one column");
    list = query.sql;
  }
  for (std::size_t i = 1; i < expr.args.size(); ++i) {
    if (i > 1) list += ", ";
    list += WriteValue(*expr.args[i]).sql;
  }
  if (value.type == ValueType::Text) {
    value = {
        Hold(WriteValue(WithoutCase(*expr.args[0])), Strength::Collate) + " COLLATE " + kCollation,
        Strength::Collate, ValueType::Text};
  }
  return {Hold(value, Strength::Add) + (expr.negated ? " NOT IN (" : " IN (") + list + ")",
          Strength::Compare, ValueType::Bool};
}

}  // namespace corvanta::jet
