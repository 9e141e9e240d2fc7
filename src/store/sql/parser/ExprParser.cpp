#include "store/sql/parser/ExprParser.h"

#include <algorithm>
#include <array>

namespace corvanta::jet {
namespace {

constexpr int kMaxLevels = 1200;

// The library below refuses expressions of more levels.
constexpr int kMaxHeight = 950;

// Operators of the same precedence, from the loosest to the tightest.
constexpr std::array<std::array<Word, 2>, 5> kBinaryLevels = {{
    {Word::Ampersand, Word::Ampersand},
    {Word::Plus, Word::Minus},
    {Word::Mod, Word::Mod},
    {Word::Backslash, Word::Backslash},
    {Word::Star, Word::Slash},
}};

ExprPtr Join(Word op, ExprPtr left, ExprPtr right, const Token& token) {
  auto expr = std::make_unique<Expr>();
  expr->kind = ExprKind::Binary;
  expr->op = op;
  expr->token = token;
  expr->height = static_cast<std::uint16_t>(1 + std::max(left->height, right->height));
  expr->args.push_back(std::move(left));
  expr->args.push_back(std::move(right));
  return expr;
}

}  // namespace

ExprParser::Level::Level(ExprParser& parser) : parser_(parser) {
  if (++parser.depth_ > kMaxLevels) parser.reader_.Fail("the statement is nested too deeply");
}

bool ExprParser::EndsAlias(Word word) {
  switch (word) {
    case Word::Inner:
    case Word::Left:
    case Word::Right:
    case Word::Join:
    case Word::On:
    case Word::Where:
    case Word::Group:
    case Word::Order:
    case Word::Union:
    case Word::Having:
    case Word::Set:
    case Word::As:
    case Word::Outer:
    case Word::Values:
    case Word::Select:
      return true;
    default:
      return false;
  }
}

ExprPtr ExprParser::Make(ExprKind kind, const Token& token) {
  auto expr = std::make_unique<Expr>();
  expr->kind = kind;
  expr->token = token;
  return expr;
}

void ExprParser::CheckHeight(const Expr& expr) const {
  if (expr.height > kMaxHeight) {
    reader_.Fail(expr.token, "the expression has too many operators in a row");
  }
}

ExprPtr ExprParser::ParseOr() {
  const Level level(*this);
  ExprPtr left = ParseAnd();
  while (reader_.Is(Word::Or)) {
    const Token& token = reader_.Take();
    left = Join(Word::Or, std::move(left), ParseAnd(), token);
    CheckHeight(*left);
  }
  return left;
}

ExprPtr ExprParser::ParseAnd() {
  ExprPtr left = ParseNot();
  while (reader_.Is(Word::And)) {
    const Token& token = reader_.Take();
    left = Join(Word::And, std::move(left), ParseNot(), token);
    CheckHeight(*left);
  }
  return left;
}

ExprPtr ExprParser::ParseNot() {
  if (!reader_.Is(Word::Not)) return ParseComparison();
  const Level level(*this);
  ExprPtr expr = Make(ExprKind::Not, reader_.Take());
  expr->args.push_back(ParseNot());
  return expr;
}

ExprPtr ExprParser::ParseComparison() {
  ExprPtr left = ParseBinary(0);
  while (true) {
    const Token& token = reader_.Peek();
    const bool negated = token.word == Word::Not;
    const Word word = negated ? reader_.Peek(1).word : token.word;
    if (word == Word::In || word == Word::Between || word == Word::Like ||
        (word == Word::Is && !negated)) {
      if (negated) reader_.Take();
      left = ParsePredicate(std::move(left), negated);
    } else if (!negated && word >= Word::Equal && word <= Word::GreaterEqual) {
      const Token& op = reader_.Take();
      left = Join(word, std::move(left), ParseBinary(0), op);
      CheckHeight(*left);
    } else {
      return left;
    }
  }
}

ExprPtr ExprParser::ParsePredicate(ExprPtr left, bool negated) {
  const Token& token = reader_.Take();
  if (token.word == Word::In) return ParseIn(std::move(left), negated);
  if (token.word == Word::Is) {
    ExprPtr expr = Make(ExprKind::IsNull, token);
    expr->negated = reader_.TakeIf(Word::Not);
    reader_.Expect(Word::Null, "NULL behind IS");
    expr->args.push_back(std::move(left));
    return expr;
  }
  if (token.word == Word::Like) {
    ExprPtr like = Join(Word::Like, std::move(left), ParseBinary(0), token);
    like->negated = negated;
    return like;
  }
  ExprPtr expr = Make(ExprKind::Between, token);
  expr->negated = negated;
  expr->args.push_back(std::move(left));
  expr->args.push_back(ParseBinary(0));
  reader_.Expect(Word::And, "AND behind BETWEEN");
  expr->args.push_back(ParseBinary(0));
  return expr;
}

ExprPtr ExprParser::ParseIn(ExprPtr left, bool negated) {
  ExprPtr expr = Make(ExprKind::In, reader_.Peek());
  expr->negated = negated;
  expr->args.push_back(std::move(left));
  reader_.Expect(Word::Open, "an opening bracket behind IN");
  if (reader_.Is(Word::Select)) {
    expr->select = ParseSelect();
  } else if (!reader_.Is(Word::Close)) {
    do {
      expr->args.push_back(ParseExpr());
    } while (reader_.TakeIf(Word::Comma));
  }
  reader_.Expect(Word::Close, "a closing bracket behind the list");
  return expr;
}

ExprPtr ExprParser::ParseBinary(int level) {
  if (level == static_cast<int>(kBinaryLevels.size())) return ParseUnary();
  const auto& words = kBinaryLevels[static_cast<std::size_t>(level)];
  ExprPtr left = ParseBinary(level + 1);
  while (reader_.Is(words[0]) || reader_.Is(words[1])) {
    const Token& token = reader_.Take();
    left = Join(token.word, std::move(left), ParseBinary(level + 1), token);
    CheckHeight(*left);
  }
  return left;
}

ExprPtr ExprParser::ParseUnary() {
  const Level level(*this);
  if (reader_.TakeIf(Word::Plus)) return ParseUnary();
  if (!reader_.Is(Word::Minus)) return ParsePower();
  if (reader_.Peek(1).kind == TokenKind::Number && !reader_.Is(Word::Caret, 2)) {
    return ParseSigned();
  }
  ExprPtr expr = Make(ExprKind::Negate, reader_.Take());
  expr->args.push_back(ParseUnary());
  return expr;
}

// A minus sign and the number behind it, as one value.
ExprPtr ExprParser::ParseSigned() {
  reader_.Take();
  ExprPtr expr = Make(ExprKind::Literal, reader_.Take());
  expr->negated = true;
  return expr;
}

// Powers are taken from left to right: 2^3^2 is 64.
ExprPtr ExprParser::ParsePower() {
  ExprPtr left = ParsePrimary();
  while (reader_.Is(Word::Caret)) {
    const Token& token = reader_.Take();
    left = Join(Word::Caret, std::move(left), ParseExponent(), token);
    CheckHeight(*left);
  }
  return left;
}

// A sign in front of an exponent belongs to it alone.
ExprPtr ExprParser::ParseExponent() {
  const Level level(*this);
  if (reader_.TakeIf(Word::Plus)) return ParseExponent();
  if (!reader_.Is(Word::Minus)) return ParsePrimary();
  if (reader_.Peek(1).kind == TokenKind::Number) return ParseSigned();
  ExprPtr expr = Make(ExprKind::Negate, reader_.Take());
  expr->args.push_back(ParseExponent());
  return expr;
}

ExprPtr ExprParser::ParsePrimary() {
  const Token& token = reader_.Peek();
  switch (token.kind) {
    case TokenKind::Number:
    case TokenKind::Text:
    case TokenKind::Date:
      return Make(ExprKind::Literal, reader_.Take());
    case TokenKind::End:
      reader_.Fail("expected a value");
    default:
      break;
  }
  if (token.word == Word::Null) return Make(ExprKind::Null, reader_.Take());
  if (token.word == Word::Open) {
    reader_.Take();
    if (reader_.Is(Word::Select)) {
      ExprPtr expr = Make(ExprKind::Subquery, token);
      expr->select = ParseSelect();
      reader_.Expect(Word::Close, "a closing bracket behind the query");
      return expr;
    }
    ExprPtr inner = ParseExpr();
    reader_.Expect(Word::Close, "a closing bracket");
    return inner;
  }
  if (token.word == Word::Exists && reader_.Is(Word::Open, 1)) {
    ExprPtr expr = Make(ExprKind::Exists, reader_.Take());
    reader_.Take();
    expr->select = ParseSelect();
    reader_.Expect(Word::Close, "a closing bracket behind the query");
    return expr;
  }
  if (!IsName(token)) reader_.Fail("expected a value");
  return ParseName();
}

ExprPtr ExprParser::ParseName() {
  const Token& token = reader_.Take();
  if (token.kind == TokenKind::Name && reader_.Is(Word::Open)) return ParseCall(token);
  if (token.kind == TokenKind::Name && EndsAlias(token.word)) {
    reader_.Fail(token, "expected a value");
  }
  ExprPtr expr = Make(ExprKind::Column, token);
  if (reader_.TakeIf(Word::Dot)) {
    expr->qualifier = std::string(token.text);
    expr->name = reader_.ExpectName("a column's name behind the point");
    return expr;
  }
  // "[T.Date]": alias and column in one pair of brackets.
  const std::size_t dot =
      token.kind == TokenKind::Bracketed ? token.text.find('.') : token.text.npos;
  if (dot != token.text.npos) {
    expr->qualifier = std::string(token.text.substr(0, dot));
    expr->name = std::string(token.text.substr(dot + 1));
  } else {
    expr->name = std::string(token.text);
  }
  return expr;
}

ExprPtr ExprParser::ParseCall(const Token& name) {
  const Level level(*this);
  ExprPtr expr = Make(ExprKind::Call, name);
  expr->name = std::string(name.text);
  reader_.Expect(Word::Open, "an opening bracket");
  if (reader_.TakeIf(Word::Close)) return expr;
  do {
    if (reader_.Is(Word::Star)) {
      expr->args.push_back(Make(ExprKind::AllColumns, reader_.Take()));
    } else {
      expr->args.push_back(ParseExpr());
      expr->height =
          std::max(expr->height, static_cast<std::uint16_t>(expr->args.back()->height + 1));
    }
  } while (reader_.TakeIf(Word::Comma));
  reader_.Expect(Word::Close, "a closing bracket behind the arguments");
  return expr;
}

}  // namespace corvanta::jet
