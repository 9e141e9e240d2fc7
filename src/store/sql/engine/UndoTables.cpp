#include "store/sql/engine/UndoTables.h"

#include "store/sql/writer/Quote.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>

namespace corvanta::inline sql {
namespace {

using jet::QuoteName;

constexpr const char* kLog = "undo_rows";
// The log's columns before the former values of a row.
constexpr int kTable = 1;
constexpr int kKind = 2;
constexpr int kRow = 3;
constexpr int kValues = 4;

std::string TriggerName(const char* event, const std::string& table) {
  return QuoteName("undo_" + std::string(event) + "_" + table);
}

std::string List(const std::vector<std::string>& columns, const std::string& before,
                 const std::string& between, const std::string& after) {
  std::string list;
  for (const std::string& column : columns) {
    if (!list.empty()) list += between;
    list += before + QuoteName(column) + after;
  }
  return list;
}

std::string ValueColumns(std::size_t count) {
  std::string list;
  for (std::size_t i = 0; i < count; ++i) list += ", c" + std::to_string(i);
  return list;
}

// A write that changes nothing must not become a step.
std::string AnyDifference(const std::vector<std::string>& columns) {
  std::string condition;
  for (const std::string& column : columns) {
    if (!condition.empty()) condition += " OR ";
    condition += "OLD." + QuoteName(column) + " IS NOT NEW." + QuoteName(column);
  }
  return condition;
}

}  // namespace

void UndoTables::Open(Connection::Impl& store) {
  store_ = &store;
  tables_.clear();
  std::size_t most = 0;
  for (const std::string& name : names_) {
    const TableDef* definition = store.Tables().Find(name);
    if (definition == nullptr || definition->primaryKey.size() != 1) continue;
    Table table;
    table.name = definition->name;
    table.key = definition->primaryKey[0];
    for (const ColumnDef& column : definition->columns) table.columns.push_back(column.name);
    most = std::max(most, table.columns.size());
    tables_.push_back(std::move(table));
  }
  // Columns without a type keep every value exactly as it was.
  RunOwn(std::string("CREATE TEMP TABLE ") + kLog + " (number INTEGER PRIMARY KEY, tbl, kind, row" +
         ValueColumns(most) + ")");
  for (std::size_t i = 0; i < tables_.size(); ++i) AddTriggers(i);
  last_ = Prepare(store_->Database(), std::string("SELECT max(number) FROM temp.") + kLog,
                  store_->Path());
}

void UndoTables::AddTriggers(std::size_t number) {
  const Table& table = tables_[number];
  const auto make = [&](const char* event, Kind kind, const std::string& condition,
                        const std::string& row, const std::string& values) {
    const std::string columns =
        "tbl, kind, row" + (values.empty() ? "" : ValueColumns(table.columns.size()));
    RunOwn("CREATE TEMP TRIGGER " + TriggerName(event, table.name) + " AFTER " + event +
           " ON main." + QuoteName(table.name) + condition + " BEGIN INSERT INTO " + kLog + " (" +
           columns + ") VALUES (" + std::to_string(number) + ", " +
           std::to_string(static_cast<int>(kind)) + ", " + row + "." + QuoteName(table.key) +
           values + "); END");
  };
  const std::string old = ", " + List(table.columns, "OLD.", ", ", "");
  make("INSERT", Kind::Insert, "", "NEW", "");
  make("UPDATE", Kind::Update, " WHEN " + AnyDifference(table.columns), "NEW", old);
  make("DELETE", Kind::Delete, "", "OLD", old);
}

void UndoTables::Close() {
  last_.reset();
  tables_.clear();
  for (const std::string& name : names_) {
    for (const char* event : {"INSERT", "UPDATE", "DELETE"}) {
      RunOwn("DROP TRIGGER IF EXISTS temp." + TriggerName(event, name));
    }
  }
  RunOwn(std::string("DROP TABLE IF EXISTS temp.") + kLog);
}

void UndoTables::Release() {
  last_.reset();
  tables_.clear();
  store_ = nullptr;
}

std::int64_t UndoTables::Last() {
  const int result = sqlite3_step(last_.get());
  const std::int64_t number = result == SQLITE_ROW ? sqlite3_column_int64(last_.get(), 0) : 0;
  sqlite3_reset(last_.get());
  if (result == SQLITE_ROW || result == SQLITE_DONE) return number;
  throw ErrorOf(store_->Database(), result, {}, store_->Path());
}

std::vector<std::int64_t> UndoTables::Keys(std::string_view table, std::int64_t first,
                                           std::int64_t last) {
  std::vector<std::int64_t> keys;
  const auto found = std::ranges::find(tables_, table, &Table::name);
  if (found == tables_.end()) return keys;
  const std::string sql = std::string("SELECT DISTINCT row FROM temp.") + kLog +
                          " WHERE tbl = ?1 AND number BETWEEN ?2 AND ?3";
  const StatementHandle rows = Prepare(store_->Database(), sql, store_->Path());
  sqlite3_bind_int64(rows.get(), 1, found - tables_.begin());
  sqlite3_bind_int64(rows.get(), 2, first);
  sqlite3_bind_int64(rows.get(), 3, last);
  int result = SQLITE_ROW;
  while ((result = sqlite3_step(rows.get())) == SQLITE_ROW) {
    keys.push_back(sqlite3_column_int64(rows.get(), 0));
  }
  if (result != SQLITE_DONE) throw ErrorOf(store_->Database(), result, sql, store_->Path());
  return keys;
}

void UndoTables::Revert(std::int64_t first, std::int64_t last) {
  const std::string sql = std::string("SELECT * FROM temp.") + kLog +
                          " WHERE number BETWEEN ?1 AND ?2 ORDER BY number DESC";
  const StatementHandle rows = Prepare(store_->Database(), sql, store_->Path());
  sqlite3_bind_int64(rows.get(), 1, first);
  sqlite3_bind_int64(rows.get(), 2, last);
  int result = SQLITE_ROW;
  while ((result = sqlite3_step(rows.get())) == SQLITE_ROW) Apply(rows.get());
  if (result != SQLITE_DONE) throw ErrorOf(store_->Database(), result, sql, store_->Path());
}

void UndoTables::Apply(sqlite3_stmt* logged) {
  Table& table = tables_[static_cast<std::size_t>(sqlite3_column_int(logged, kTable))];
  const auto kind = static_cast<Kind>(sqlite3_column_int(logged, kKind));
  sqlite3_stmt* statement = StatementFor(table, kind);
  int parameter = 0;
  if (kind != Kind::Insert) {
    const int count = static_cast<int>(table.columns.size());
    for (int i = 0; i < count; ++i) {
      sqlite3_bind_value(statement, ++parameter, sqlite3_column_value(logged, kValues + i));
    }
  }
  if (kind != Kind::Delete) {
    sqlite3_bind_value(statement, ++parameter, sqlite3_column_value(logged, kRow));
  }
  const int result = sqlite3_step(statement);
  if (result != SQLITE_DONE) {
    StoreError error = ErrorOf(store_->Database(), result, {}, store_->Path());
    sqlite3_reset(statement);
    throw error;
  }
  sqlite3_reset(statement);
}

// OR FAIL: a failing statement need not be taken back by itself, for the whole transaction is. The
// library would otherwise keep, and encipher, every page that each of the statements changes.
sqlite3_stmt* UndoTables::StatementFor(Table& table, Kind kind) {
  const std::string name = "main." + QuoteName(table.name);
  const std::string row = " WHERE " + QuoteName(table.key) + " = ?";
  const auto prepared = [&](StatementHandle& handle, const std::string& sql) {
    if (!handle) handle = Prepare(store_->Database(), sql, store_->Path());
    return handle.get();
  };
  if (kind == Kind::Insert) return prepared(table.deleteRow, "DELETE FROM " + name + row);
  if (kind == Kind::Update) {
    return prepared(table.restoreRow, "UPDATE OR FAIL " + name + " SET " +
                                          List(table.columns, "", ", ", " = ?") + row);
  }
  std::string marks = "?";
  for (std::size_t i = 1; i < table.columns.size(); ++i) marks += ", ?";
  return prepared(table.insertRow, "INSERT OR FAIL INTO " + name + " (" +
                                       List(table.columns, "", ", ", "") + ") VALUES (" + marks +
                                       ")");
}

void UndoTables::Forget(std::int64_t first, std::int64_t last) {
  RunOwn(std::string("DELETE FROM temp.") + kLog + " WHERE number BETWEEN " +
         std::to_string(first) + " AND " + std::to_string(last));
}

void UndoTables::RunOwn(const std::string& sql) {
  Run(store_->Database(), sql, store_->Path());
}

}  // namespace corvanta::inline sql
