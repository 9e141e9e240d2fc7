#pragma once

#include "store/sql/lexer/Token.h"
#include "store/sql/parser/Ast.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::jet {

// A statement's tokens, read from left to right: what the parts of the parser share.
class TokenReader {
 public:
  TokenReader(std::string_view sql, const std::vector<Token>& tokens)
      : sql_(sql), tokens_(tokens) {}

  [[nodiscard]] const Token& Peek(std::size_t ahead = 0) const;
  const Token& Take();
  // True, and past it, when the next token is this word or sign.
  bool TakeIf(Word word);
  [[nodiscard]] bool Is(Word word, std::size_t ahead = 0) const { return Peek(ahead).word == word; }
  void Expect(Word word, const char* what);
  // A name, also one that is a word of the language where only a name can stand.
  [[nodiscard]] std::string ExpectName(const char* what);
  [[nodiscard]] std::int64_t ExpectWhole(const char* what);
  // Names in brackets, separated by commas.
  [[nodiscard]] std::vector<std::string> ExpectNames(const char* what);
  [[noreturn]] void Fail(const std::string& what) const;
  [[noreturn]] void Fail(const Token& token, const std::string& what) const;

 private:
  std::string_view sql_;
  const std::vector<Token>& tokens_;
  std::size_t at_ = 0;
};

}  // namespace corvanta::jet
