#include "store/sql/writer/JoinWriter.h"

#include "store/sql/writer/ExprWriter.h"
#include "store/sql/writer/QueryWriter.h"
#include "store/sql/writer/Quote.h"

#include <vector>

namespace corvanta::jet {
namespace {

// One table of the flat row; with a condition it is joined by LEFT JOIN.
struct Item {
  const Source* table = nullptr;
  std::vector<Item> group;  // several tables joined as one, in place of table
  std::vector<const Expr*> groupFilters;
  const Expr* leftOn = nullptr;
};

struct Flat {
  std::vector<Item> items;
  std::vector<const Expr*> filters;
};

Flat Flatten(const Source& source) {
  if (!source.left) return {{Item{&source, {}, {}, nullptr}}, {}};
  const bool swapped = source.join == JoinKind::Right;
  Flat first = Flatten(swapped ? *source.right : *source.left);
  Flat second = Flatten(swapped ? *source.left : *source.right);
  if (source.join == JoinKind::Inner) {
    for (Item& item : second.items) first.items.push_back(std::move(item));
    first.filters.insert(first.filters.end(), second.filters.begin(), second.filters.end());
    if (source.on) first.filters.push_back(source.on.get());
    return first;
  }
  Item item;
  if (second.items.size() == 1 && second.items[0].leftOn == nullptr) {
    item = std::move(second.items[0]);
  } else {
    item.group = std::move(second.items);
    item.groupFilters = std::move(second.filters);
  }
  item.leftOn = source.on.get();
  first.items.push_back(std::move(item));
  return first;
}

std::string WriteTable(const Source& source) {
  const std::string alias = source.alias.empty() ? std::string() : " AS " + QuoteName(source.alias);
  if (source.query) return "(" + WriteQuery(*source.query) + ")" + alias;
  return QuoteName(source.table) + alias;
}

std::string WriteConditions(const std::vector<const Expr*>& conditions) {
  std::string sql;
  for (const Expr* condition : conditions) {
    if (!sql.empty()) sql += " AND ";
    sql += Parenthesised(Write(*condition), Precedence::Not);
  }
  return sql;
}

std::string WriteItems(const std::vector<Item>& items);

std::string WriteGroup(const Item& item) {
  const std::string on = WriteConditions(item.groupFilters);
  return WriteItems(item.group) + (on.empty() ? "" : " ON " + on);
}

std::string WriteItems(const std::vector<Item>& items) {
  std::string sql;
  for (const Item& item : items) {
    if (!sql.empty()) sql += item.leftOn != nullptr ? " LEFT JOIN " : " JOIN ";
    sql += item.table != nullptr ? WriteTable(*item.table) : "(" + WriteGroup(item) + ")";
    if (item.leftOn != nullptr) sql += " ON " + Write(*item.leftOn).sql;
  }
  return sql;
}

}  // namespace

WrittenSources WriteFrom(const Source& from) {
  const Flat flat = Flatten(from);
  return {WriteItems(flat.items), WriteConditions(flat.filters)};
}

}  // namespace corvanta::jet
