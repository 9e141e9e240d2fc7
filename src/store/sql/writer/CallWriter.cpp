#include "store/sql/writer/CallWriter.h"

#include "store/sql/binder/Calls.h"

#include <string_view>

namespace corvanta::jet {
namespace {

// The form's SQL with the arguments in their places.
std::string Fill(const Expr& expr) {
  const std::string_view sql = expr.call->sql;
  std::string filled;
  for (std::size_t i = 0; i < sql.size(); ++i) {
    if (sql[i] != '$') {
      filled += sql[i];
      continue;
    }
    const bool asText = sql[++i] == 'T';
    if (asText) ++i;
    const Expr& argument = *expr.args[static_cast<std::size_t>(sql[i] - '1')];
    filled += asText ? WriteText(argument) : WriteValue(argument).sql;
  }
  return filled;
}

// A whole chain of IIFs in the last argument becomes one CASE, for the library's reader allows
// only few levels of nesting and a chain has one link for each currency.
Written WriteIif(const Expr& expr) {
  std::string sql = "CASE";
  const Expr* link = &expr;
  while (link->kind == ExprKind::Call && link->call->kind == CallKind::Iif) {
    sql += " WHEN " + Write(*link->args[0]).sql + " THEN " + WriteValue(*link->args[1]).sql;
    link = link->args[2].get();
  }
  return {sql + " ELSE " + WriteValue(*link).sql + " END", Precedence::Atom};
}

Written WriteSameType(const Expr& expr) {
  const Expr& argument = *expr.args[0];
  const Written value = WriteValue(argument);
  const bool collates = argument.type == ValueType::Text && expr.call->sql != "sum";
  return {std::string(expr.call->sql) + "(" + (collates ? Collated(value) : value.sql) + ")",
          Precedence::Atom};
}

}  // namespace

Written WriteCall(const Expr& expr) {
  switch (expr.call->kind) {
    case CallKind::Plain:
      return {Fill(expr), expr.call->sql == "$T1" ? Precedence::Add : Precedence::Atom};
    case CallKind::Iif:
      return WriteIif(expr);
    case CallKind::IsNull:
      return {Parenthesised(WriteValue(*expr.args[0]), Precedence::Add) + " IS NULL",
              Precedence::Compare};
    case CallKind::Nz:
      return {
          "ifnull(" + WriteValue(*expr.args[0]).sql + ", " + WriteValue(*expr.args[1]).sql + ")",
          Precedence::Atom};
    case CallKind::SameType:
      return WriteSameType(expr);
    case CallKind::CountRows:
      break;
  }
  return {std::string(expr.call->sql), Precedence::Atom};
}

}  // namespace corvanta::jet
