#pragma once

#include "store/sql/lexer/Literal.h"
#include "store/sql/lexer/Token.h"
#include "store/sql/parser/Ast.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {

enum class StatementKind : std::uint8_t { Rows, Change, Definition };

// A statement told apart into what it does and the values it does it with. It points into the text
// that it was read from.
struct ReadStatement {
  std::string_view sql;
  StatementKind kind = StatementKind::Rows;
  // What it does: the key under which the prepared statement is kept.
  std::string key;
  // False for a statement that is hardly ever met again.
  bool isReusable = true;
  std::vector<jet::Parameter> parameters;
  // For each literal the number (from 1) of the parameter it is bound as; 0 for one that stays.
  std::vector<std::int16_t> numbers;
  std::vector<jet::Token> tokens;
  std::deque<std::string> texts;         // what parameters point to that is not in `sql`
  std::unique_ptr<jet::Statement> tree;  // where reading it needed one
};

// Reads statements. What is a value is decided on the tree, once for each form of a statement (its
// text with all literals left out); later statements of that form cost one pass of the lexer.
class StatementReader {
 public:
  // Throws StoreError(Sql). In a SELECT equal values share a number, so that an expression that
  // stands twice stays the same expression.
  [[nodiscard]] ReadStatement Read(std::string_view sql);

 private:
  // What every statement of one form has in common.
  struct Form {
    StatementKind kind = StatementKind::Rows;
    bool isReusable = true;
    std::vector<bool> isBound;    // for each literal
    std::vector<bool> isNegated;  // its minus sign belongs to the value
  };

  void WriteForm(const std::vector<jet::Token>& tokens);
  [[nodiscard]] static Form FormOf(const ReadStatement& statement);
  static void TakeValues(ReadStatement& statement, const Form& form);
  static void WriteKey(ReadStatement& statement, const Form& form);

  std::string formText_;
  std::unordered_map<std::string, Form> forms_;
};

// The kind of a statement, which is parsed for it. Throws StoreError(Sql).
[[nodiscard]] StatementKind KindOfStatement(std::string_view sql);

}  // namespace corvanta::inline sql
