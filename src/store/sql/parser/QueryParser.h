#pragma once

#include "store/sql/parser/Ast.h"
#include "store/sql/parser/TokenReader.h"

namespace corvanta::jet {

// Reads expressions and SELECTs, which hold each other.
class QueryParser {
 public:
  explicit QueryParser(TokenReader& reader) : reader_(reader) {}

  [[nodiscard]] std::unique_ptr<Select> ParseSelect();
  // The rows of the table whose name comes next.
  [[nodiscard]] std::unique_ptr<Select> ParseTable();
  [[nodiscard]] ExprPtr ParseExpr() { return ParseOr(); }

 private:
  class Level;

  void ParseSelectHead(Select& select);
  void ParseSelectTail(Select& select);
  [[nodiscard]] SelectItem ParseItem();
  [[nodiscard]] std::vector<OrderItem> ParseOrder();
  [[nodiscard]] std::unique_ptr<Source> ParseSources();
  [[nodiscard]] std::unique_ptr<Source> ParseJoins();
  [[nodiscard]] std::unique_ptr<Source> ParseSource();
  [[nodiscard]] std::string ParseAlias();

  [[nodiscard]] ExprPtr ParseOr();
  [[nodiscard]] ExprPtr ParseAnd();
  [[nodiscard]] ExprPtr ParseNot();
  [[nodiscard]] ExprPtr ParseComparison();
  [[nodiscard]] ExprPtr ParsePredicate(ExprPtr left, bool negated);
  [[nodiscard]] ExprPtr ParseIn(ExprPtr left, bool negated);
  [[nodiscard]] ExprPtr ParseBinary(int level);
  [[nodiscard]] ExprPtr ParseUnary();
  [[nodiscard]] ExprPtr ParseSigned();
  [[nodiscard]] ExprPtr ParsePower();
  [[nodiscard]] ExprPtr ParseExponent();
  [[nodiscard]] ExprPtr ParsePrimary();
  [[nodiscard]] ExprPtr ParseName();
  [[nodiscard]] ExprPtr ParseCall(const Token& name);
  void CheckHeight(const Expr& expr) const;
  [[nodiscard]] ExprPtr Make(ExprKind kind, const Token& token) const;

  TokenReader& reader_;
  int depth_ = 0;
};

}  // namespace corvanta::jet
