#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace corvanta::jet {

enum class TokenKind : std::uint8_t { Name, Bracketed, Number, Text, Date, Symbol, End };

// The words and signs that decide how a statement is read. Names are matched against them without
// regard to case; in brackets a word is always a name.
enum class Word : std::uint8_t {
  None,
  Add,
  All,
  Alter,
  And,
  As,
  Asc,
  Between,
  By,
  Column,
  Constraint,
  Create,
  Default,
  Delete,
  Desc,
  Distinct,
  DistinctRow,
  Drop,
  Exists,
  From,
  Group,
  Having,
  In,
  Index,
  Inner,
  Insert,
  Into,
  Is,
  Join,
  Key,
  Left,
  Like,
  Mod,
  Not,
  Null,
  On,
  Or,
  Order,
  Outer,
  Primary,
  Right,
  Select,
  Set,
  Table,
  Top,
  Union,
  Unique,
  Update,
  Values,
  Where,
  Equal,
  NotEqual,
  Less,
  LessEqual,
  Greater,
  GreaterEqual,
  Plus,
  Minus,
  Star,
  Slash,
  Backslash,
  Caret,
  Ampersand,
  Open,
  Close,
  Comma,
  Dot,
  Semicolon
};

struct Token {
  TokenKind kind = TokenKind::End;
  Word word = Word::None;
  bool hasQuotes = false;     // of a text: it holds doubled quotation marks
  std::uint32_t literal = 0;  // of a number, text or date: which one of the statement's, from 0
  std::uint32_t offset = 0;   // of the first character in the statement
  std::string_view text;      // without brackets, quotation marks or number signs
};

[[nodiscard]] inline bool IsLiteral(const Token& token) {
  return token.kind == TokenKind::Number || token.kind == TokenKind::Text ||
         token.kind == TokenKind::Date;
}

[[nodiscard]] inline bool IsName(const Token& token) {
  return token.kind == TokenKind::Name || token.kind == TokenKind::Bracketed;
}

}  // namespace corvanta::jet
