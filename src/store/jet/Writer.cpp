#include "store/jet/Writer.h"

#include "store/jet/Lexer.h"
#include "store/jet/QueryWriter.h"

namespace corvanta::jet {
namespace {

const TableDef& FindTable(const WriterContext& context, const std::string& name,
                          std::uint32_t offset) {
  const TableDef* table = context.catalog.Find(name);
  if (table == nullptr) FailAt(context.sql, offset, "there is no table " + name);
  return *table;
}

const ColumnDef& FindColumn(const WriterContext& context, const TableDef& table,
                            const std::string& name, std::uint32_t offset) {
  const ColumnDef* column = table.Column(name);
  if (column == nullptr) {
    FailAt(context.sql, offset, "the table " + table.name + " has no column " + name);
  }
  return *column;
}

WrittenStatement WriteInsert(const WriterContext& context, const Insert& insert) {
  const TableDef& table = FindTable(context, insert.table, insert.offset);
  WrittenStatement written;
  written.table = table.name;
  written.sql = "INSERT INTO " + QuoteName(table.name);
  std::size_t count = table.columns.size();
  if (!insert.columns.empty()) {
    count = insert.columns.size();
    for (std::size_t i = 0; i < count; ++i) {
      const ColumnDef& column = FindColumn(context, table, insert.columns[i], insert.offset);
      written.sql += (i == 0 ? " (" : ", ") + QuoteName(column.name);
    }
    written.sql += ")";
  }
  std::size_t given = insert.values.size();
  if (insert.select) {
    const WrittenQuery query = WriteQuery(context, *insert.select, nullptr);
    given = query.columns.size();
    written.sql += " " + query.sql;
  } else {
    const Scope none;
    const ExprWriter writer(context, none);
    for (std::size_t i = 0; i < insert.values.size(); ++i) {
      written.sql += (i == 0 ? " VALUES (" : ", ") + writer.WriteValue(*insert.values[i]).sql;
    }
    written.sql += ")";
  }
  if (given != count) {
    FailAt(context.sql, insert.offset, "the number of values differs from the number of columns");
  }
  return written;
}

// The table's columns under its own name: the library has no names for it here.
Scope ScopeOf(const TableDef& table) {
  Scope scope;
  scope.Add(SourceOf(table, {}));
  return scope;
}

WrittenStatement WriteUpdate(const WriterContext& context, const Update& update) {
  const TableDef& table = FindTable(context, update.table, update.offset);
  if (!update.alias.empty()) {
    FailAt(context.sql, update.offset, "a table that is updated takes no other name");
  }
  const Scope scope = ScopeOf(table);
  const ExprWriter writer(context, scope);
  WrittenStatement written;
  written.table = table.name;
  written.sql = "UPDATE " + QuoteName(table.name);
  for (std::size_t i = 0; i < update.assignments.size(); ++i) {
    const Assignment& assignment = update.assignments[i];
    const ColumnDef& column = FindColumn(context, table, assignment.column, assignment.offset);
    written.sql += (i == 0 ? " SET " : ", ") + QuoteName(column.name) + " = " +
                   writer.WriteValue(*assignment.value).sql;
  }
  if (update.where) written.sql += " WHERE " + writer.Write(*update.where).sql;
  return written;
}

WrittenStatement WriteDelete(const WriterContext& context, const Delete& statement) {
  const TableDef& table = FindTable(context, statement.table, statement.offset);
  const Scope scope = ScopeOf(table);
  WrittenStatement written;
  written.table = table.name;
  written.sql = "DELETE FROM " + QuoteName(table.name);
  if (statement.where) {
    written.sql += " WHERE " + ExprWriter(context, scope).Write(*statement.where).sql;
  }
  return written;
}

}  // namespace

WrittenStatement WriteStatement(const WriterContext& context, const Statement& statement) {
  if (const auto* select = std::get_if<std::unique_ptr<Select>>(&statement)) {
    WrittenQuery query = WriteQuery(context, **select, nullptr);
    return {std::move(query.sql), std::move(query.columns), std::move(query.table)};
  }
  if (const auto* insert = std::get_if<Insert>(&statement)) return WriteInsert(context, *insert);
  if (const auto* update = std::get_if<Update>(&statement)) return WriteUpdate(context, *update);
  return WriteDelete(context, std::get<Delete>(statement));
}

}  // namespace corvanta::jet
