#include "store/sql/parser/QueryParser.h"

namespace corvanta::jet {
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

}  // namespace corvanta::jet
