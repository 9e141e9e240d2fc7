#pragma once

#include "store/sql/parser/Ast.h"
#include "store/sql/parser/ExprParser.h"

namespace corvanta::jet {

// Reads SELECTs and the expressions in them, which hold each other.
class QueryParser : public ExprParser {
 public:
  using ExprParser::ExprParser;

  [[nodiscard]] std::unique_ptr<Select> ParseSelect() override;
  // The rows of the table whose name comes next.
  [[nodiscard]] std::unique_ptr<Select> ParseTable();

 private:
  void ParseSelectHead(Select& select);
  void ParseSelectTail(Select& select);
  [[nodiscard]] SelectItem ParseItem();
  [[nodiscard]] std::vector<OrderItem> ParseOrder();
  [[nodiscard]] std::unique_ptr<Source> ParseSources();
  [[nodiscard]] std::unique_ptr<Source> ParseJoins();
  [[nodiscard]] std::unique_ptr<Source> ParseSource();
  [[nodiscard]] std::string ParseAlias();
};

}  // namespace corvanta::jet
