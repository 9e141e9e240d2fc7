#include "store/sql/parser/TokenReader.h"

#include "store/sql/lexer/Lexer.h"

#include <algorithm>
#include <charconv>

namespace corvanta::jet {

const Token& TokenReader::Peek(std::size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

const Token& TokenReader::Take() {
  const Token& token = tokens_[at_];
  if (token.kind != TokenKind::End) ++at_;
  return token;
}

bool TokenReader::TakeIf(Word word) {
  if (!Is(word)) return false;
  Take();
  return true;
}

void TokenReader::Expect(Word word, const char* what) {
  if (!TakeIf(word)) Fail(std::string("expected ") + what);
}

std::string TokenReader::ExpectName(const char* what) {
  const Token& token = Peek();
  if (!IsName(token) || token.text.empty()) Fail(std::string("expected ") + what);
  Take();
  return std::string(token.text);
}

std::int64_t TokenReader::ExpectWhole(const char* what) {
  const Token& token = Peek();
  std::int64_t number = 0;
  const char* const end = token.text.data() + token.text.size();
  const auto result = std::from_chars(token.text.data(), end, number);
  if (token.kind != TokenKind::Number || result.ec != std::errc() || result.ptr != end) {
    Fail(std::string("expected ") + what);
  }
  Take();
  return number;
}

std::vector<std::string> TokenReader::ExpectNames(const char* what) {
  std::vector<std::string> names;
  Expect(Word::Open, "an opening bracket");
  do {
    names.push_back(ExpectName(what));
    if (!TakeIf(Word::Asc)) TakeIf(Word::Desc);
  } while (TakeIf(Word::Comma));
  Expect(Word::Close, "a closing bracket");
  return names;
}

void TokenReader::Fail(const std::string& what) const {
  Fail(Peek(), what);
}

void TokenReader::Fail(const Token& token, const std::string& what) const {
  const bool atEnd = token.kind == TokenKind::End;
  FailAt(sql_, token.offset, atEnd ? what + ", but the statement ends" : what);
}

}  // namespace corvanta::jet
