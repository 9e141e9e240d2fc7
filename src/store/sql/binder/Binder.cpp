#include "store/sql/binder/Binder.h"

#include "store/sql/binder/QueryBinder.h"
#include "store/sql/lexer/Lexer.h"

namespace corvanta::jet {
namespace {

const TableDef& BindTable(const BinderContext& context, std::string& name, std::uint32_t offset) {
  const TableDef* table = context.catalog.Find(name);
  if (table == nullptr) FailAt(context.sql, offset, "there is no table " + name);
  name = table->name;
  return *table;
}

void BindColumnName(const BinderContext& context, const TableDef& table, std::string& name,
                    std::uint32_t offset) {
  const ColumnDef* column = table.Column(name);
  if (column == nullptr) {
    FailAt(context.sql, offset, "the table " + table.name + " has no column " + name);
  }
  name = column->name;
}

// The table's columns under its own name: the library has no names for it here.
Scope ScopeOf(const TableDef& table) {
  Scope scope;
  scope.Add(SourceOf(table, {}));
  return scope;
}

void BindInsert(const BinderContext& context, Insert& insert) {
  const TableDef& table = BindTable(context, insert.table, insert.offset);
  for (std::string& column : insert.columns) BindColumnName(context, table, column, insert.offset);
  const std::size_t expected =
      insert.columns.empty() ? table.columns.size() : insert.columns.size();
  std::size_t given = insert.values.size();
  if (insert.select) {
    BindSelect(context, *insert.select, nullptr);
    given = insert.select->columns.size();
  } else {
    const Scope none;
    for (const ExprPtr& value : insert.values) ExprBinder(context, none).Bind(*value);
  }
  if (given != expected) {
    FailAt(context.sql, insert.offset, "the number of values differs from the number of columns");
  }
}

void BindUpdate(const BinderContext& context, Update& update) {
  const TableDef& table = BindTable(context, update.table, update.offset);
  if (!update.alias.empty()) {
    FailAt(context.sql, update.offset, "a table that is updated takes no other name");
  }
  const Scope scope = ScopeOf(table);
  const ExprBinder binder(context, scope);
  for (Assignment& assignment : update.assignments) {
    BindColumnName(context, table, assignment.column, assignment.offset);
    binder.Bind(*assignment.value);
  }
  if (update.where) binder.Bind(*update.where);
}

void BindDelete(const BinderContext& context, Delete& statement) {
  const TableDef& table = BindTable(context, statement.table, statement.offset);
  const Scope scope = ScopeOf(table);
  if (statement.where) ExprBinder(context, scope).Bind(*statement.where);
}

}  // namespace

void Bind(const BinderContext& context, Statement& statement) {
  if (auto* select = std::get_if<std::unique_ptr<Select>>(&statement)) {
    BindSelect(context, **select, nullptr);
  } else if (auto* insert = std::get_if<Insert>(&statement)) {
    BindInsert(context, *insert);
  } else if (auto* update = std::get_if<Update>(&statement)) {
    BindUpdate(context, *update);
  } else if (auto* remove = std::get_if<Delete>(&statement)) {
    BindDelete(context, *remove);
  }
}

std::string TableOf(const Statement& statement) {
  if (const auto* insert = std::get_if<Insert>(&statement)) return insert->table;
  if (const auto* update = std::get_if<Update>(&statement)) return update->table;
  if (const auto* remove = std::get_if<Delete>(&statement)) return remove->table;
  const auto* query = std::get_if<std::unique_ptr<Select>>(&statement);
  if (query == nullptr) return {};
  const Select& select = **query;
  const bool isPlain =
      select.from && !select.distinct && select.groupBy.empty() && !select.unionWith;
  return isPlain ? select.from->table : std::string();
}

}  // namespace corvanta::jet
