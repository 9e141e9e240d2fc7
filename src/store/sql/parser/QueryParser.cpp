#include "store/sql/parser/QueryParser.h"

#include <algorithm>
#include <array>

namespace corvanta::jet {
namespace {

constexpr int kMaxLevels = 1200;

// Signs of the same strength, from the weakest to the strongest.
constexpr std::array<std::array<Word, 2>, 5> kBinaryLevels = {{
    {Word::Ampersand, Word::Ampersand},
    {Word::Plus, Word::Minus},
    {Word::Mod, Word::Mod},
    {Word::Backslash, Word::Backslash},
    {Word::Star, Word::Slash},
}};

bool EndsAlias(Word word) {
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

// The library below refuses expressions of more levels.
constexpr int kMaxHeight = 950;

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

// Counts the nesting while it is in scope.
class QueryParser::Level {
 public:
  explicit Level(QueryParser& parser) : parser_(parser) {
    if (++parser.depth_ > kMaxLevels) parser.reader_.Fail("the statement is nested too deeply");
  }
  ~Level() { --parser_.depth_; }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

 private:
  QueryParser& parser_;
};

std::unique_ptr<Select> QueryParser::ParseSelect() {
  const Level level(*this);
  auto first = std::make_unique<Select>();
  ParseSelectHead(*first);
  for (Select* last = first.get(); reader_.TakeIf(Word::Union); last = last->unionWith.get()) {
    last->unionAll = reader_.TakeIf(Word::All);
    last->unionWith = std::make_unique<Select>();
    ParseSelectHead(*last->unionWith);
  }
  if (reader_.TakeIf(Word::Order)) first->orderBy = ParseOrder();
  return first;
}

std::unique_ptr<Select> QueryParser::ParseTable() {
  auto select = std::make_unique<Select>();
  select->items.push_back({Make(ExprKind::AllColumns, reader_.Peek()), {}});
  select->from = ParseSource();
  return select;
}

void QueryParser::ParseSelectHead(Select& select) {
  reader_.Expect(Word::Select, "SELECT");
  while (true) {
    if (reader_.TakeIf(Word::Distinct)) {
      select.distinct = true;
    } else if (reader_.Is(Word::Top) && reader_.Peek(1).kind == TokenKind::Number) {
      reader_.Take();
      select.top = reader_.ExpectWhole("the number of rows behind TOP");
    } else if (!reader_.TakeIf(Word::DistinctRow) && !reader_.TakeIf(Word::All)) {
      break;
    }
  }
  do {
    select.items.push_back(ParseItem());
  } while (reader_.TakeIf(Word::Comma));
  ParseSelectTail(select);
}

void QueryParser::ParseSelectTail(Select& select) {
  if (reader_.TakeIf(Word::From)) select.from = ParseSources();
  if (reader_.TakeIf(Word::Where)) select.where = ParseExpr();
  if (reader_.TakeIf(Word::Group)) {
    reader_.Expect(Word::By, "BY behind GROUP");
    do {
      select.groupBy.push_back(ParseExpr());
    } while (reader_.TakeIf(Word::Comma));
  }
  if (reader_.TakeIf(Word::Having)) select.having = ParseExpr();
}

SelectItem QueryParser::ParseItem() {
  SelectItem item;
  const Token& first = reader_.Peek();
  if (first.word == Word::Star) {
    reader_.Take();
    item.expr = Make(ExprKind::AllColumns, first);
    return item;
  }
  if (IsName(first) && reader_.Is(Word::Dot, 1) && reader_.Is(Word::Star, 2)) {
    item.expr = Make(ExprKind::AllColumns, first);
    item.expr->qualifier = std::string(first.text);
    reader_.Take();
    reader_.Take();
    reader_.Take();
    return item;
  }
  item.expr = ParseExpr();
  if (reader_.TakeIf(Word::As)) {
    item.alias = reader_.ExpectName("a name behind AS");
  } else if (IsName(reader_.Peek()) && !EndsAlias(reader_.Peek().word) &&
             reader_.Peek().word != Word::From && reader_.Peek().word != Word::Into) {
    reader_.Fail("expected a comma, AS or FROM");
  }
  return item;
}

std::vector<OrderItem> QueryParser::ParseOrder() {
  reader_.Expect(Word::By, "BY behind ORDER");
  std::vector<OrderItem> items;
  do {
    OrderItem item;
    item.expr = ParseExpr();
    if (reader_.TakeIf(Word::Desc)) {
      item.descending = true;
    } else {
      reader_.TakeIf(Word::Asc);
    }
    items.push_back(std::move(item));
  } while (reader_.TakeIf(Word::Comma));
  return items;
}

std::unique_ptr<Source> QueryParser::ParseSources() {
  auto left = ParseJoins();
  while (reader_.TakeIf(Word::Comma)) {
    auto join = std::make_unique<Source>();
    join->offset = left->offset;
    join->left = std::move(left);
    join->right = ParseJoins();
    left = std::move(join);
  }
  return left;
}

std::unique_ptr<Source> QueryParser::ParseJoins() {
  const Level level(*this);
  auto left = ParseSource();
  while (true) {
    JoinKind kind = JoinKind::Inner;
    if (reader_.TakeIf(Word::Left)) {
      kind = JoinKind::Left;
    } else if (reader_.TakeIf(Word::Right)) {
      kind = JoinKind::Right;
    } else if (!reader_.TakeIf(Word::Inner)) {
      if (!reader_.Is(Word::Join)) return left;
    }
    if (kind != JoinKind::Inner) reader_.TakeIf(Word::Outer);
    reader_.Expect(Word::Join, "JOIN");
    auto join = std::make_unique<Source>();
    join->join = kind;
    join->offset = left->offset;
    join->left = std::move(left);
    join->right = ParseSource();
    reader_.Expect(Word::On, "ON behind the joined table");
    join->on = ParseExpr();
    left = std::move(join);
  }
}

std::unique_ptr<Source> QueryParser::ParseSource() {
  const Level level(*this);
  auto source = std::make_unique<Source>();
  source->offset = reader_.Peek().offset;
  if (reader_.TakeIf(Word::Open)) {
    if (reader_.Is(Word::Select)) {
      source->query = ParseSelect();
      reader_.Expect(Word::Close, "a closing bracket behind the query");
      source->alias = ParseAlias();
      return source;
    }
    auto inner = ParseSources();
    reader_.Expect(Word::Close, "a closing bracket behind the joined tables");
    return inner;
  }
  source->table = reader_.ExpectName("a table's name");
  source->alias = ParseAlias();
  return source;
}

std::string QueryParser::ParseAlias() {
  if (reader_.TakeIf(Word::As)) return reader_.ExpectName("a name behind AS");
  const Token& token = reader_.Peek();
  if (!IsName(token) || EndsAlias(token.word)) return {};
  return reader_.ExpectName("a name");
}

ExprPtr QueryParser::Make(ExprKind kind, const Token& token) const {
  auto expr = std::make_unique<Expr>();
  expr->kind = kind;
  expr->token = token;
  return expr;
}

void QueryParser::CheckHeight(const Expr& expr) const {
  if (expr.height > kMaxHeight) {
    reader_.Fail(expr.token, "the expression has too many operators in a row");
  }
}

ExprPtr QueryParser::ParseOr() {
  const Level level(*this);
  ExprPtr left = ParseAnd();
  while (reader_.Is(Word::Or)) {
    const Token& token = reader_.Take();
    left = Join(Word::Or, std::move(left), ParseAnd(), token);
    CheckHeight(*left);
  }
  return left;
}

ExprPtr QueryParser::ParseAnd() {
  ExprPtr left = ParseNot();
  while (reader_.Is(Word::And)) {
    const Token& token = reader_.Take();
    left = Join(Word::And, std::move(left), ParseNot(), token);
    CheckHeight(*left);
  }
  return left;
}

ExprPtr QueryParser::ParseNot() {
  if (!reader_.Is(Word::Not)) return ParseComparison();
  const Level level(*this);
  ExprPtr expr = Make(ExprKind::Not, reader_.Take());
  expr->args.push_back(ParseNot());
  return expr;
}

ExprPtr QueryParser::ParseComparison() {
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

ExprPtr QueryParser::ParsePredicate(ExprPtr left, bool negated) {
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

ExprPtr QueryParser::ParseIn(ExprPtr left, bool negated) {
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

ExprPtr QueryParser::ParseBinary(int level) {
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

ExprPtr QueryParser::ParseUnary() {
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
ExprPtr QueryParser::ParseSigned() {
  reader_.Take();
  ExprPtr expr = Make(ExprKind::Literal, reader_.Take());
  expr->negated = true;
  return expr;
}

// Powers are taken from left to right: 2^3^2 is 64.
ExprPtr QueryParser::ParsePower() {
  ExprPtr left = ParsePrimary();
  while (reader_.Is(Word::Caret)) {
    const Token& token = reader_.Take();
    left = Join(Word::Caret, std::move(left), ParseExponent(), token);
    CheckHeight(*left);
  }
  return left;
}

// A sign in front of an exponent belongs to it alone.
ExprPtr QueryParser::ParseExponent() {
  const Level level(*this);
  if (reader_.TakeIf(Word::Plus)) return ParseExponent();
  if (!reader_.Is(Word::Minus)) return ParsePrimary();
  if (reader_.Peek(1).kind == TokenKind::Number) return ParseSigned();
  ExprPtr expr = Make(ExprKind::Negate, reader_.Take());
  expr->args.push_back(ParseExponent());
  return expr;
}

ExprPtr QueryParser::ParsePrimary() {
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

ExprPtr QueryParser::ParseName() {
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

ExprPtr QueryParser::ParseCall(const Token& name) {
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
