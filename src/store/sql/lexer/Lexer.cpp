#include "store/sql/lexer/Lexer.h"

#include "store/sql/StoreError.h"
#include "store/sql/lexer/Words.h"

#include <cstring>

namespace corvanta::jet {
namespace {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

constexpr bool StartsName(char c) {
  const char u = Upper(c);
  return (u >= 'A' && u <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

constexpr bool ContinuesName(char c) {
  return StartsName(c) || IsDigit(c) || c == '$';
}

class Lexer {
 public:
  Lexer(std::string_view sql, std::vector<Token>& tokens) : sql_(sql), tokens_(tokens) {}

  void Run() {
    while (true) {
      while (at_ < sql_.size() && IsSpace(sql_[at_])) ++at_;
      if (at_ >= sql_.size()) break;
      Next();
    }
    Push(TokenKind::End, Word::None, at_, at_, at_);
  }

 private:
  void Push(TokenKind kind, Word word, std::size_t offset, std::size_t from, std::size_t to) {
    Token& token = tokens_.emplace_back();
    token.kind = kind;
    token.word = word;
    token.offset = static_cast<std::uint32_t>(offset);
    token.text = sql_.substr(from, to - from);
    if (IsLiteral(token)) token.literal = literals_++;
  }

  void Next() {
    const char c = sql_[at_];
    if (StartsName(c)) return Name();
    if (IsDigit(c) || (c == '.' && at_ + 1 < sql_.size() && IsDigit(sql_[at_ + 1]))) {
      return Number();
    }
    switch (c) {
      case '\'':
      case '"':
        return Text(c);
      case '[':
        return Enclosed(']', TokenKind::Bracketed, "a name in brackets has no closing bracket");
      case '`':
        return Enclosed('`', TokenKind::Bracketed, "a quoted name has no end");
      case '#':
        return Enclosed('#', TokenKind::Date, "a date has no closing number sign");
      default:
        return Symbol();
    }
  }

  void Name() {
    const std::size_t from = at_;
    while (at_ < sql_.size() && ContinuesName(sql_[at_])) ++at_;
    Push(TokenKind::Name, FindWord(sql_.substr(from, at_ - from)), from, from, at_);
  }

  void Number() {
    const std::size_t from = at_;
    const auto digits = [this] {
      while (at_ < sql_.size() && IsDigit(sql_[at_])) ++at_;
    };
    digits();
    if (at_ < sql_.size() && sql_[at_] == '.') {
      ++at_;
      digits();
    }
    if (at_ < sql_.size() && Upper(sql_[at_]) == 'E') {
      std::size_t exponent = at_ + 1;
      if (exponent < sql_.size() && (sql_[exponent] == '+' || sql_[exponent] == '-')) ++exponent;
      if (exponent < sql_.size() && IsDigit(sql_[exponent])) {
        at_ = exponent;
        digits();
      }
    }
    Push(TokenKind::Number, Word::None, from, from, at_);
  }

  void Text(char quote) {
    const std::size_t from = at_++;
    bool doubled = false;
    while (true) {
      const void* found =
          at_ < sql_.size() ? std::memchr(sql_.data() + at_, quote, sql_.size() - at_) : nullptr;
      if (found == nullptr) FailAt(sql_, from, "a text has no closing quotation mark");
      at_ = static_cast<std::size_t>(static_cast<const char*>(found) - sql_.data()) + 1;
      if (at_ >= sql_.size() || sql_[at_] != quote) break;
      doubled = true;
      ++at_;
    }
    Push(TokenKind::Text, Word::None, from, from + 1, at_ - 1);
    tokens_.back().hasQuotes = doubled;
  }

  void Enclosed(char close, TokenKind kind, const char* failure) {
    const std::size_t from = at_;
    const std::size_t end = sql_.find(close, from + 1);
    if (end == std::string_view::npos) FailAt(sql_, from, failure);
    at_ = end + 1;
    Push(kind, Word::None, from, from + 1, end);
  }

  void Symbol() {
    const std::size_t from = at_;
    const char c = sql_[at_++];
    const Word word = WordOfSign(c, at_ < sql_.size() ? sql_[at_] : '\0');
    if (word == Word::None) {
      FailAt(sql_, from, std::string("the sign '") + c + "' has no meaning here");
    }
    if (word == Word::NotEqual || word == Word::LessEqual || word == Word::GreaterEqual) ++at_;
    Push(TokenKind::Symbol, word, from, from, at_);
  }

  std::string_view sql_;
  std::vector<Token>& tokens_;
  std::size_t at_ = 0;
  std::uint32_t literals_ = 0;
};

}  // namespace

void Tokenize(std::string_view sql, std::vector<Token>& tokens) {
  tokens.clear();
  if (sql.size() > 0x7fffffff) FailAt({}, 0, "the statement is too long");
  Lexer(sql, tokens).Run();
}

std::string Unquote(const Token& token) {
  if (!token.hasQuotes) return std::string(token.text);
  std::string text;
  text.reserve(token.text.size());
  // The quotation mark around the text stands just before it.
  const char quote = *(token.text.data() - 1);
  for (std::size_t i = 0; i < token.text.size(); ++i) {
    text.push_back(token.text[i]);
    if (token.text[i] == quote) ++i;
  }
  return text;
}

void FailAt(std::string_view sql, std::size_t offset, const std::string& what) {
  std::string message = "Syntax error in the statement at character " + std::to_string(offset + 1) +
                        ": " + what + ".";
  // What stands there may be a person's own text: show only the word that the reader stopped at.
  if (offset < sql.size() && StartsName(sql[offset])) {
    std::size_t end = offset;
    while (end < sql.size() && ContinuesName(sql[end]) && end - offset < 40) ++end;
    message += " Near: " + std::string(sql.substr(offset, end - offset));
  }
  throw StoreError(StoreErrorCode::Sql, message);
}

}  // namespace corvanta::jet
