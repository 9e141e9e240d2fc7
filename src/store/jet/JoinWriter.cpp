#include "store/jet/JoinWriter.h"

#include "store/jet/Lexer.h"
#include "store/jet/QueryWriter.h"

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

class FromWriter {
 public:
  FromWriter(const WriterContext& context, Scope& scope)
      : context_(context), scope_(scope), writer_(context, scope) {}

  WrittenSources Run(const Source& from) {
    const Flat flat = Flatten(from);
    for (const Item& item : flat.items) AddToScope(item);
    return {WriteItems(flat.items), WriteConditions(flat.filters)};
  }

 private:
  void AddToScope(const Item& item) {
    for (const Item& inner : item.group) AddToScope(inner);
    if (item.table == nullptr) return;
    const Source& source = *item.table;
    ScopeSource added;
    if (source.query) {
      WrittenQuery query = WriteQuery(context_, *source.query, nullptr);
      if (source.alias.empty()) FailAt(context_.sql, source.offset, "a query in FROM needs a name");
      added.name = source.alias;
      added.columns = std::move(query.columns);
      queries_.emplace_back(&source, std::move(query.sql));
    } else {
      const TableDef* table = context_.catalog.Find(source.table);
      if (table == nullptr) {
        FailAt(context_.sql, source.offset, "there is no table " + source.table);
      }
      added = SourceOf(*table, source.alias);
    }
    if (scope_.Find(added.name) != nullptr) {
      FailAt(context_.sql, source.offset, "the name " + added.name + " stands for two tables");
    }
    scope_.Add(std::move(added));
  }

  std::string WriteItems(const std::vector<Item>& items) {
    std::string sql;
    for (const Item& item : items) {
      if (!sql.empty()) sql += item.leftOn != nullptr ? " LEFT JOIN " : " JOIN ";
      sql += item.table != nullptr ? WriteTable(*item.table) : "(" + WriteGroup(item) + ")";
      if (item.leftOn != nullptr) sql += " ON " + writer_.Write(*item.leftOn).sql;
    }
    return sql;
  }

  std::string WriteGroup(const Item& item) {
    const std::string on = WriteConditions(item.groupFilters);
    return WriteItems(item.group) + (on.empty() ? "" : " ON " + on);
  }

  std::string WriteTable(const Source& source) {
    for (const auto& [key, sql] : queries_) {
      if (key == &source) return "(" + sql + ") AS " + QuoteName(source.alias);
    }
    const TableDef* table = context_.catalog.Find(source.table);
    const std::string name = QuoteName(table->name);
    return source.alias.empty() ? name : name + " AS " + QuoteName(source.alias);
  }

  std::string WriteConditions(const std::vector<const Expr*>& conditions) {
    std::string sql;
    for (const Expr* condition : conditions) {
      if (!sql.empty()) sql += " AND ";
      sql += Hold(writer_.Write(*condition), Strength::Not);
    }
    return sql;
  }

  const WriterContext& context_;
  Scope& scope_;
  ExprWriter writer_;
  std::vector<std::pair<const Source*, std::string>> queries_;
};

}  // namespace

WrittenSources WriteFrom(const WriterContext& context, const Source& from, Scope& scope) {
  return FromWriter(context, scope).Run(from);
}

}  // namespace corvanta::jet
