#include "store/sql/lexer/Lexer.h"

#include "store/sql/StoreError.h"

#include <array>
#include <cstring>

namespace corvanta::jet {
namespace {

struct WordName {
  std::string_view text;  // in capitals
  Word word;
};

constexpr std::array kWords = {WordName{"ADD", Word::Add},
                               WordName{"ALL", Word::All},
                               WordName{"ALTER", Word::Alter},
                               WordName{"AND", Word::And},
                               WordName{"AS", Word::As},
                               WordName{"ASC", Word::Asc},
                               WordName{"BETWEEN", Word::Between},
                               WordName{"BY", Word::By},
                               WordName{"COLUMN", Word::Column},
                               WordName{"CONSTRAINT", Word::Constraint},
                               WordName{"CREATE", Word::Create},
                               WordName{"DEFAULT", Word::Default},
                               WordName{"DELETE", Word::Delete},
                               WordName{"DESC", Word::Desc},
                               WordName{"DISTINCT", Word::Distinct},
                               WordName{"DISTINCTROW", Word::DistinctRow},
                               WordName{"DROP", Word::Drop},
                               WordName{"EXISTS", Word::Exists},
                               WordName{"FROM", Word::From},
                               WordName{"GROUP", Word::Group},
                               WordName{"HAVING", Word::Having},
                               WordName{"IN", Word::In},
                               WordName{"INDEX", Word::Index},
                               WordName{"INNER", Word::Inner},
                               WordName{"INSERT", Word::Insert},
                               WordName{"INTO", Word::Into},
                               WordName{"IS", Word::Is},
                               WordName{"JOIN", Word::Join},
                               WordName{"KEY", Word::Key},
                               WordName{"LEFT", Word::Left},
                               WordName{"LIKE", Word::Like},
                               WordName{"MOD", Word::Mod},
                               WordName{"NOT", Word::Not},
                               WordName{"NULL", Word::Null},
                               WordName{"ON", Word::On},
                               WordName{"OR", Word::Or},
                               WordName{"ORDER", Word::Order},
                               WordName{"OUTER", Word::Outer},
                               WordName{"PRIMARY", Word::Primary},
                               WordName{"RIGHT", Word::Right},
                               WordName{"SELECT", Word::Select},
                               WordName{"SET", Word::Set},
                               WordName{"TABLE", Word::Table},
                               WordName{"TOP", Word::Top},
                               WordName{"UNION", Word::Union},
                               WordName{"UNIQUE", Word::Unique},
                               WordName{"UPDATE", Word::Update},
                               WordName{"VALUES", Word::Values},
                               WordName{"WHERE", Word::Where}};

constexpr char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}
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

// Where the words of one first letter begin in kWords (which is in order).
constexpr std::array<std::uint8_t, 27> FirstLetters() {
  std::array<std::uint8_t, 27> first{};
  std::size_t at = 0;
  for (std::size_t letter = 0; letter < 27; ++letter) {
    while (at < kWords.size() && kWords[at].text[0] < static_cast<char>('A' + letter)) ++at;
    first[letter] = static_cast<std::uint8_t>(at);
  }
  return first;
}

constexpr auto kFirstLetters = FirstLetters();

bool SameWord(std::string_view text, std::string_view capitals) {
  if (text.size() != capitals.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (Upper(text[i]) != capitals[i]) return false;
  }
  return true;
}

Word FindWord(std::string_view text) {
  const char first = Upper(text[0]);
  if (first < 'A' || first > 'Z' || text.size() > 11) return Word::None;
  const auto letter = static_cast<std::size_t>(first - 'A');
  for (std::size_t i = kFirstLetters[letter]; i < kFirstLetters[letter + 1]; ++i) {
    if (SameWord(text, kWords[i].text)) return kWords[i].word;
  }
  return Word::None;
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
    const char next = at_ < sql_.size() ? sql_[at_] : '\0';
    Word word = Word::None;
    switch (c) {
      case '=':
        word = Word::Equal;
        break;
      case '<':
        word = next == '>' ? Word::NotEqual : next == '=' ? Word::LessEqual : Word::Less;
        break;
      case '>':
        word = next == '=' ? Word::GreaterEqual : Word::Greater;
        break;
      case '+':
        word = Word::Plus;
        break;
      case '-':
        word = Word::Minus;
        break;
      case '*':
        word = Word::Star;
        break;
      case '/':
        word = Word::Slash;
        break;
      case '\\':
        word = Word::Backslash;
        break;
      case '^':
        word = Word::Caret;
        break;
      case '&':
        word = Word::Ampersand;
        break;
      case '(':
        word = Word::Open;
        break;
      case ')':
        word = Word::Close;
        break;
      case ',':
        word = Word::Comma;
        break;
      case '.':
        word = Word::Dot;
        break;
      case ';':
        word = Word::Semicolon;
        break;
      default:
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
