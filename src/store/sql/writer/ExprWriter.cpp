#include "store/sql/writer/ExprWriter.h"

#include "platform/TextCase.h"
#include "store/sql/binder/ExprBinder.h"
#include "store/sql/lexer/Lexer.h"
#include "store/sql/writer/CallWriter.h"
#include "store/sql/writer/QueryWriter.h"
#include "store/sql/writer/Quote.h"

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
  const bool folds = expr.kind == ExprKind::Call && expr.args.size() == 1 &&
                     (EqualFolded(expr.name, "lcase") || EqualFolded(expr.name, "ucase"));
  return folds ? WithoutCase(*expr.args[0]) : expr;
}

bool ComparesText(const Expr& a, const Expr& b) {
  return ComparesText(AsValue(a.type), AsValue(b.type));
}

bool IsDate(const Expr& expr) {
  return expr.type == ValueType::Date;
}

Written WriteLiteral(const Expr& expr) {
  const Token& token = expr.token;
  if (expr.parameter > 0) return {"?" + std::to_string(expr.parameter), Precedence::Atom};
  if (token.kind == TokenKind::Text) return {QuoteText(Unquote(token)), Precedence::Atom};
  if (token.kind == TokenKind::Date)
    return {QuoteText(IsoFromLiteral(token.text)), Precedence::Atom};
  std::string number(token.text);
  if (expr.negated) return {"-" + number, Precedence::Collate};
  return {std::move(number), Precedence::Atom};
}

// A sign keeps the library from looking for the column in an index.
Written WriteColumn(const Expr& expr) {
  const std::string name = QuoteName(expr.qualifier) + "." + QuoteName(expr.name);
  if (expr.offIndexes) return {"+" + name, Precedence::Collate};
  return {name, Precedence::Atom};
}

Written WriteChain(const Expr& expr, Precedence precedence, const char* sign) {
  const Precedence right = precedence == Precedence::Or ? Precedence::And : Precedence::Not;
  return {Parenthesised(Write(*expr.args[0]), precedence) + sign +
              Parenthesised(Write(*expr.args[1]), right),
          precedence};
}

Written WriteComparison(const Expr& expr) {
  const Expr& left = *expr.args[0];
  const Expr& right = *expr.args[1];
  if (!ComparesText(left, right)) {
    return {Parenthesised(WriteValue(left), Precedence::Add) + SignOf(expr.op) +
                Parenthesised(WriteValue(right), Precedence::Add),
            Precedence::Compare};
  }
  return {Parenthesised(WriteValue(WithoutCase(left)), Precedence::Add) + SignOf(expr.op) +
              Collated(WriteValue(WithoutCase(right))),
          Precedence::Compare};
}

Written WriteLike(const Expr& expr) {
  const std::string call =
      "jet_like(" + WriteValue(*expr.args[1]).sql + ", " + WriteValue(*expr.args[0]).sql + ")";
  if (!expr.negated) return {call, Precedence::Atom};
  return {"NOT " + call, Precedence::Not};
}

Written WriteMovedDate(const std::string& days, const Expr& date) {
  return {"jet_dateadd('d', " + days + ", " + WriteValue(date).sql + ")", Precedence::Atom};
}

// Adds numbers, joins texts, and moves a date by days; NULL on either side gives NULL.
Written WriteSum(const Expr& expr) {
  const Expr& left = *expr.args[0];
  const Expr& right = *expr.args[1];
  if (ComparesText(left, right)) {
    return {Parenthesised(WriteValue(left), Precedence::Concat) + " || " +
                Parenthesised(WriteValue(right), Precedence::Concat),
            Precedence::Concat};
  }
  if (IsDate(left) && IsNumeric(right.type)) return WriteMovedDate(WriteValue(right).sql, left);
  if (IsDate(right) && IsNumeric(left.type)) return WriteMovedDate(WriteValue(left).sql, right);
  return {Parenthesised(WriteValue(left), Precedence::Add) + " + " +
              Parenthesised(WriteValue(right), Precedence::Multiply),
          Precedence::Add};
}

Written WriteDifference(const Expr& expr) {
  const Expr& left = *expr.args[0];
  const Expr& right = *expr.args[1];
  if (IsDate(left) && IsDate(right)) {
    return {"jet_datediff('d', " + WriteValue(right).sql + ", " + WriteValue(left).sql + ")",
            Precedence::Atom};
  }
  if (IsDate(left)) return WriteMovedDate("-(" + WriteValue(right).sql + ")", left);
  return {Parenthesised(WriteValue(left), Precedence::Add) + " - " +
              Parenthesised(WriteValue(right), Precedence::Multiply),
          Precedence::Add};
}

Written WriteArithmetic(const Expr& expr) {
  const Written left = WriteValue(*expr.args[0]);
  const Written right = WriteValue(*expr.args[1]);
  switch (expr.op) {
    case Word::Star:
      return {Parenthesised(left, Precedence::Multiply) + " * " +
                  Parenthesised(right, Precedence::Concat),
              Precedence::Multiply};
    case Word::Slash:  // of whole numbers, too, gives a fraction
      return {Parenthesised(left, Precedence::Multiply) + " * 1.0 / " +
                  Parenthesised(right, Precedence::Concat),
              Precedence::Multiply};
    case Word::Backslash:
      return {"jet_round(" + left.sql + ", 0) / jet_round(" + right.sql + ", 0)",
              Precedence::Multiply};
    case Word::Mod:
      return {"jet_round(" + left.sql + ", 0) % jet_round(" + right.sql + ", 0)",
              Precedence::Multiply};
    default:
      return {"jet_power(" + left.sql + ", " + right.sql + ")", Precedence::Atom};
  }
}

Written WriteBinary(const Expr& expr) {
  switch (expr.op) {
    case Word::Or:
      return WriteChain(expr, Precedence::Or, " OR ");
    case Word::And:
      return WriteChain(expr, Precedence::And, " AND ");
    case Word::Like:
      return WriteLike(expr);
    case Word::Plus:
      return WriteSum(expr);
    case Word::Minus:
      return WriteDifference(expr);
    case Word::Ampersand:
      return {"ifnull(" + WriteText(*expr.args[0]) + ",'') || ifnull(" + WriteText(*expr.args[1]) +
                  ",'')",
              Precedence::Concat};
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

Written WriteBetween(const Expr& expr) {
  const Expr& value = *expr.args[0];
  const Expr& low = *expr.args[1];
  const Expr& high = *expr.args[2];
  const bool isText = ComparesText(value, low) || ComparesText(value, high);
  const Written written = WriteValue(value);
  return {(isText ? Collated(written) : Parenthesised(written, Precedence::Add)) +
              (expr.negated ? " NOT BETWEEN " : " BETWEEN ") +
              Parenthesised(WriteValue(low), Precedence::Add) + " AND " +
              Parenthesised(WriteValue(high), Precedence::Add),
          Precedence::Compare};
}

Written WriteIn(const Expr& expr) {
  const Expr& value = *expr.args[0];
  std::string list = expr.select ? WriteQuery(*expr.select) : std::string();
  for (std::size_t i = 1; i < expr.args.size(); ++i) {
    if (i > 1) list += ", ";
    list += WriteValue(*expr.args[i]).sql;
  }
  const std::string sought = value.type == ValueType::Text
                                 ? Collated(WriteValue(WithoutCase(value)))
                                 : Parenthesised(WriteValue(value), Precedence::Add);
  return {sought + (expr.negated ? " NOT IN (" : " IN (") + list + ")", Precedence::Compare};
}

}  // namespace

std::string Parenthesised(const Written& written, Precedence precedence) {
  return written.precedence >= precedence ? written.sql : "(" + written.sql + ")";
}

std::string Collated(const Written& written) {
  return Parenthesised(written, Precedence::Collate) + " COLLATE " + kCollation;
}

std::string WriteText(const Expr& expr) {
  const Written value = WriteValue(expr);
  switch (AsValue(expr.type)) {
    case ValueType::Text:
    case ValueType::Date:
      return Parenthesised(value, Precedence::Concat);
    case ValueType::Integer:
      return "CAST(" + value.sql + " AS TEXT)";
    default:
      return "jet_text(" + value.sql + ")";
  }
}

Written Write(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::Null:
    case ExprKind::AllColumns:  // none is left in a bound tree
      return {"NULL", Precedence::Atom};
    case ExprKind::True:
      return {"-1", Precedence::Collate};
    case ExprKind::False:
      return {"0", Precedence::Atom};
    case ExprKind::Literal:
      return WriteLiteral(expr);
    case ExprKind::Column:
      return WriteColumn(expr);
    case ExprKind::Not:
      return {"NOT " + Parenthesised(Write(*expr.args[0]), Precedence::Not), Precedence::Not};
    case ExprKind::Negate:
      return {"-" + Parenthesised(WriteValue(*expr.args[0]), Precedence::Atom),
              Precedence::Collate};
    case ExprKind::Binary:
      return WriteBinary(expr);
    case ExprKind::Call:
      return WriteCall(expr);
    case ExprKind::IsNull:
      return {Parenthesised(WriteValue(*expr.args[0]), Precedence::Add) +
                  (expr.negated ? " IS NOT NULL" : " IS NULL"),
              Precedence::Compare};
    case ExprKind::Between:
      return WriteBetween(expr);
    case ExprKind::In:
      return WriteIn(expr);
    case ExprKind::Exists:
      return {"EXISTS (" + WriteQuery(*expr.select) + ")", Precedence::Not};
    case ExprKind::Subquery:
      return {"(" + WriteQuery(*expr.select) + ")", Precedence::Atom};
  }
  return {};
}

Written WriteValue(const Expr& expr) {
  Written written = Write(expr);
  if (expr.type != ValueType::Bool) return written;
  return {"-(" + written.sql + ")", Precedence::Collate};
}

std::string WriteSortKey(const Expr& expr) {
  const Written key = WriteValue(expr);
  if (expr.type == ValueType::Text) return Collated(key);
  // A whole number would be taken for a column's position, bound or under a sign.
  const bool isNumber = expr.kind == ExprKind::Literal || expr.kind == ExprKind::Negate ||
                        expr.kind == ExprKind::True || expr.kind == ExprKind::False;
  return isNumber ? "(" + key.sql + ") + 0" : key.sql;
}

}  // namespace corvanta::jet
