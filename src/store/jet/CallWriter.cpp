#include "store/jet/CallWriter.h"

#include "platform/TextCase.h"
#include "store/jet/QueryWriter.h"

#include <array>
#include <string_view>
#include <vector>

namespace corvanta::jet {
namespace {

using Values = std::vector<Written>;

// A call that is one piece of SQL around its arguments: $1, $2 ... stand for them, and a capital T
// before the number for the argument as text.
struct Template {
  std::string_view name;  // folded
  std::size_t arguments;
  ValueType type;
  std::string_view sql;
};

constexpr std::array kTemplates = {
    Template{"lcase", 1, ValueType::Text, "jet_lower($1)"},
    Template{"ucase", 1, ValueType::Text, "jet_upper($1)"},
    Template{"len", 1, ValueType::Integer, "length($T1)"},
    Template{"trim", 1, ValueType::Text, "trim($T1)"},
    Template{"ltrim", 1, ValueType::Text, "ltrim($T1)"},
    Template{"rtrim", 1, ValueType::Text, "rtrim($T1)"},
    Template{"mid", 2, ValueType::Text, "substr($T1, $2)"},
    Template{"mid", 3, ValueType::Text, "substr($T1, $2, $3)"},
    Template{"left", 2, ValueType::Text, "substr($T1, 1, $2)"},
    Template{"right", 2, ValueType::Text, "substr($T1, max(length($T1) - $2, 0) + 1)"},
    Template{"instr", 2, ValueType::Integer, "jet_instr(1, $1, $2)"},
    Template{"instr", 3, ValueType::Integer, "jet_instr($1, $2, $3)"},
    Template{"replace", 3, ValueType::Text, "replace($T1, $T2, $T3)"},
    Template{"cstr", 1, ValueType::Text, "$T1"},
    Template{"cint", 1, ValueType::Integer, "jet_round($1, 0)"},
    Template{"clng", 1, ValueType::Integer, "jet_round($1, 0)"},
    Template{"cdbl", 1, ValueType::Double, "CAST($1 AS REAL)"},
    Template{"val", 1, ValueType::Double, "CAST($1 AS REAL)"},
    Template{"round", 1, ValueType::Double, "jet_round($1, 0)"},
    Template{"round", 2, ValueType::Double, "jet_round($1, $2)"},
    Template{"int", 1, ValueType::Double, "jet_floor($1)"},
    Template{"fix", 1, ValueType::Integer, "CAST($1 AS INTEGER)"},
    Template{"sgn", 1, ValueType::Integer, "(($1) > 0) - (($1) < 0)"},
    Template{"year", 1, ValueType::Integer, "CAST(substr($1, 1, 4) AS INTEGER)"},
    Template{"month", 1, ValueType::Integer, "CAST(substr($1, 6, 2) AS INTEGER)"},
    Template{"day", 1, ValueType::Integer, "CAST(substr($1, 9, 2) AS INTEGER)"},
    Template{"hour", 1, ValueType::Integer, "CAST(substr($1, 12, 2) AS INTEGER)"},
    Template{"minute", 1, ValueType::Integer, "CAST(substr($1, 15, 2) AS INTEGER)"},
    Template{"second", 1, ValueType::Integer, "CAST(substr($1, 18, 2) AS INTEGER)"},
    Template{"weekday", 1, ValueType::Integer, "jet_weekday($1)"},
    Template{"date", 0, ValueType::Date, "jet_today()"},
    Template{"now", 0, ValueType::Date, "jet_now()"},
    Template{"dateadd", 3, ValueType::Date, "jet_dateadd($1, $2, $3)"},
    Template{"datediff", 3, ValueType::Integer, "jet_datediff($1, $2, $3)"},
    Template{"datediff", 4, ValueType::Integer, "jet_datediff($1, $2, $3, $4)"},
    Template{"datediff", 5, ValueType::Integer, "jet_datediff($1, $2, $3, $4)"},
    Template{"dateserial", 3, ValueType::Date, "jet_dateserial($1, $2, $3)"},
    Template{"count", 1, ValueType::Integer, "count($1)"},
    Template{"avg", 1, ValueType::Double, "avg($1)"}};

std::string Fill(std::string_view sql, const Values& values) {
  std::string filled;
  for (std::size_t i = 0; i < sql.size(); ++i) {
    if (sql[i] != '$') {
      filled += sql[i];
      continue;
    }
    const bool asText = sql[++i] == 'T';
    if (asText) ++i;
    const Written& value = values[static_cast<std::size_t>(sql[i] - '1')];
    filled += asText ? AsText(value) : value.sql;
  }
  return filled;
}

// A whole chain of IIFs in the last argument becomes one CASE, for the library's reader allows
// only few levels of nesting and a chain has one link for each currency.
Written WriteIif(const ExprWriter& writer, const Expr& expr) {
  std::string sql = "CASE";
  ValueType type = ValueType::Null;
  const Expr* link = &expr;
  while (true) {
    if (link->args.size() != 3) writer.Fail(*link, "IIF has three arguments");
    const Written value = writer.WriteValue(*link->args[1]);
    sql += " WHEN " + writer.Write(*link->args[0]).sql + " THEN " + value.sql;
    type = Unify(type, value.type);
    const Expr* otherwise = link->args[2].get();
    if (otherwise->kind != ExprKind::Call || !EqualFolded(otherwise->name, "iif")) {
      const Written last = writer.WriteValue(*otherwise);
      sql += " ELSE " + last.sql + " END";
      return {sql, Strength::Atom, Unify(type, last.type)};
    }
    link = otherwise;
  }
}

// SUM, MIN, MAX and ABS give what they are given.
Written WriteSameType(const ExprWriter& writer, const Expr& expr, const std::string& name) {
  const Written value = writer.WriteValue(*expr.args[0]);
  std::string argument = value.sql;
  if (value.type == ValueType::Text && name != "sum") {
    argument = Hold(value, Strength::Collate) + " COLLATE jet";
  }
  return {name + "(" + argument + ")", Strength::Atom, value.type};
}

}  // namespace

Written WriteCall(const ExprWriter& writer, const Expr& expr) {
  const std::string name = FoldCase(expr.name);
  if (name == "iif") return WriteIif(writer, expr);
  const bool hasStar = !expr.args.empty() && expr.args[0]->kind == ExprKind::AllColumns;
  if (hasStar) {
    if (name != "count") writer.Fail(expr, "only COUNT takes a star");
    return {"count(*)", Strength::Atom, ValueType::Integer};
  }
  if (expr.args.size() == 1) {
    if (name == "isnull") {
      return {Hold(writer.WriteValue(*expr.args[0]), Strength::Add) + " IS NULL", Strength::Compare,
              ValueType::Bool};
    }
    if (name == "sum" || name == "min" || name == "max" || name == "abs") {
      return WriteSameType(writer, expr, name);
    }
  }
  if (name == "nz" && expr.args.size() == 2) {
    const Written value = writer.WriteValue(*expr.args[0]);
    const Written other = writer.WriteValue(*expr.args[1]);
    return {"ifnull(" + value.sql + ", " + other.sql + ")", Strength::Atom,
            Unify(value.type, other.type)};
  }
  bool known = name == "isnull" || name == "nz";
  for (const Template& entry : kTemplates) {
    if (entry.name != name) continue;
    known = true;
    if (entry.arguments != expr.args.size()) continue;
    Values values;
    for (const ExprPtr& argument : expr.args) values.push_back(writer.WriteValue(*argument));
    const bool bare = entry.sql == "$T1" || name == "sgn";
    return {Fill(entry.sql, values), bare ? Strength::Add : Strength::Atom, entry.type};
  }
  writer.Fail(expr, known ? expr.name + " has another number of arguments"
                          : "there is no function " + expr.name);
}

}  // namespace corvanta::jet
