#include "store/sql/engine/SchemaEditor.h"

#include "platform/TextCase.h"
#include "store/sql/engine/Sqlite.h"
#include "store/sql/engine/StoredTable.h"
#include "store/sql/writer/Quote.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>

namespace corvanta::inline sql {
namespace {

using jet::QuoteName;
using jet::QuoteText;

constexpr const char* kNewTable = "corvanta_rebuild";

[[noreturn]] void Refuse(const std::string& what) {
  throw StoreError(StoreErrorCode::Sql, what);
}

bool IsWhole(ColumnKind kind) {
  return kind == ColumnKind::Integer || kind == ColumnKind::Small || kind == ColumnKind::Bit ||
         kind == ColumnKind::Counter;
}

bool IsFraction(ColumnKind kind) {
  return kind == ColumnKind::Double || kind == ColumnKind::Single || kind == ColumnKind::Currency;
}

// The old column's value as the new kind; what cannot be one becomes NULL.
std::string Converted(const ColumnDef& from, const ColumnDef& to) {
  const std::string name = QuoteName(from.name);
  if (IsWhole(to.kind)) return "jet_round(jet_number(" + name + "), 0)";
  if (IsFraction(to.kind)) return "CAST(jet_number(" + name + ") AS REAL)";
  if (to.kind == ColumnKind::Text) {
    return "substr(jet_text(" + name + "), 1, " + std::to_string(to.size) + ")";
  }
  return name;
}

// What stands in a NOT NULL column that is added to rows which have no value for it.
std::string Filler(const ColumnDef& column) {
  if (!column.notNull) return "NULL";
  if (!column.defaultValue.empty()) return column.defaultValue;
  if (column.kind == ColumnKind::DateTime) return "'1899-12-30'";
  return column.kind == ColumnKind::Text || column.kind == ColumnKind::Memo ? "''" : "0";
}

std::vector<std::string> OwnValues(const TableDef& table) {
  std::vector<std::string> values;
  for (const ColumnDef& column : table.columns) values.push_back(QuoteName(column.name));
  return values;
}

std::size_t PositionOf(const TableDef& table, const std::string& name) {
  const ColumnDef* column = table.Column(name);
  if (column == nullptr) Refuse("The table " + table.name + " has no column " + name + ".");
  return static_cast<std::size_t>(column - table.columns.data());
}

bool Holds(const std::vector<std::string>& names, const std::string& name) {
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& other) { return EqualFolded(other, name); });
}

}  // namespace

void SchemaEditor::Apply(const jet::Statement& statement) {
  if (const auto* create = std::get_if<jet::CreateTable>(&statement)) return Create(*create);
  if (const auto* alter = std::get_if<jet::AlterTable>(&statement)) return Alter(*alter);
  if (const auto* drop = std::get_if<jet::DropTable>(&statement)) return Drop(*drop);
  if (const auto* create = std::get_if<jet::CreateIndex>(&statement)) return Create(*create);
  Drop(std::get<jet::DropIndex>(statement));
}

const TableDef& SchemaEditor::Find(const std::string& table) const {
  const TableDef* found = catalog_.Find(table);
  if (found == nullptr) Refuse("There is no table " + table + ".");
  return *found;
}

void SchemaEditor::Create(const jet::CreateTable& create) {
  const TableDef& table = create.table;
  if (catalog_.Find(table.name) != nullptr) Refuse("The table " + table.name + " exists already.");
  for (const std::string& column : table.primaryKey) (void)PositionOf(table, column);
  Run(database_, CreateTableText(table, table.name), file_);
  for (const IndexDef& index : table.indexes) Run(database_, CreateIndexText(table, index), file_);
}

void SchemaEditor::Alter(const jet::AlterTable& alter) {
  using Action = jet::AlterTable::Action;
  const TableDef& table = Find(alter.table);
  switch (alter.action) {
    case Action::AddColumn:
      return AddColumn(table, alter);
    case Action::AlterColumn:
      return AlterColumn(table, alter.column);
    case Action::DropColumn:
      return DropColumn(table, alter.name);
    case Action::AddConstraint:
      return AddConstraint(table, alter.constraint);
    case Action::DropConstraint:
      return DropConstraint(table, alter.name);
  }
}

// Rows that are there already keep NULL in a new column, whatever its default.
void SchemaEditor::AddColumn(TableDef table, const jet::AlterTable& alter) {
  const ColumnDef& column = alter.column;
  if (table.Column(column.name) != nullptr) {
    Refuse("The table " + table.name + " has a column " + column.name + " already.");
  }
  std::vector<std::string> values = OwnValues(table);
  table.columns.push_back(column);
  values.push_back(column.kind == ColumnKind::Counter ? "NULL" : Filler(column));
  if (!alter.constraint.name.empty() && alter.constraint.primary) {
    table.primaryKeyName = alter.constraint.name;
    table.primaryKey = alter.constraint.columns;
  }
  Rebuild(table, values);
}

void SchemaEditor::AlterColumn(TableDef table, const ColumnDef& column) {
  const std::size_t position = PositionOf(table, column.name);
  std::vector<std::string> values = OwnValues(table);
  const ColumnDef old = table.columns[position];
  table.columns[position] = column;
  table.columns[position].name = old.name;
  values[position] = Converted(old, column);
  Rebuild(table, values);
}

void SchemaEditor::DropColumn(TableDef table, const std::string& name) {
  const std::size_t position = PositionOf(table, name);
  bool used = Holds(table.primaryKey, name);
  for (const IndexDef& index : table.indexes) used = used || Holds(index.columns, name);
  if (used) Refuse("The column " + name + " is part of an index; drop the index first.");
  if (table.columns.size() == 1) Refuse("A table keeps at least one column.");
  table.columns.erase(table.columns.begin() + static_cast<std::ptrdiff_t>(position));
  Rebuild(table, OwnValues(table));
}

void SchemaEditor::AddConstraint(TableDef table, const jet::Constraint& constraint) {
  for (const std::string& column : constraint.columns) (void)PositionOf(table, column);
  if (!constraint.primary) {
    Create(jet::CreateIndex{table.name, {constraint.name, constraint.columns, true}, false});
    return;
  }
  if (!table.primaryKeyName.empty())
    Refuse("The table " + table.name + " has a primary key already.");
  table.primaryKeyName = constraint.name;
  table.primaryKey = constraint.columns;
  Rebuild(table, OwnValues(table));
}

void SchemaEditor::DropConstraint(TableDef table, const std::string& name) {
  if (!EqualFolded(table.primaryKeyName, name)) return Drop(jet::DropIndex{table.name, name});
  table.primaryKeyName.clear();
  table.primaryKey.clear();
  Rebuild(table, OwnValues(table));
}

void SchemaEditor::Drop(const jet::DropTable& drop) {
  const std::string name = Find(drop.table).name;
  DropKept(name);
  Run(database_, "DROP TABLE IF EXISTS " + QuoteName(name), file_);
}

// A table that triggers keep up to date of another one's rows (own_KeptNAME by
// "own_KeptNAME.event") goes with them: nobody could trust it after that. The next opening makes
// both anew.
void SchemaEditor::DropKept(const std::string& table) {
  const std::string named = QuoteText(table);
  std::vector<std::pair<std::string, std::string>> kept;
  {
    const StatementHandle rows = Prepare(
        database_,
        "SELECT name, substr(name, 1, instr(name, '.') - 1) AS kept FROM sqlite_master "
        "WHERE type = 'trigger' AND name LIKE 'own\\_Kept%.%' ESCAPE '\\' AND (tbl_name = " +
            named + " OR kept = " + named + ")",
        file_);
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
      kept.emplace_back(ColumnText(rows.get(), 0), ColumnText(rows.get(), 1));
    }
  }
  for (const auto& [trigger, name] : kept) {
    Run(database_,
        "DROP TRIGGER " + QuoteName(trigger) + "; DROP TABLE IF EXISTS " + QuoteName(name), file_);
  }
}

void SchemaEditor::Create(const jet::CreateIndex& create) {
  TableDef table = Find(create.table);
  for (const std::string& column : create.index.columns) (void)PositionOf(table, column);
  if (create.primary) {
    return AddConstraint(table, {create.index.name, true, create.index.columns});
  }
  if (table.Index(create.index.name) != nullptr) {
    Refuse("The table " + table.name + " has an index " + create.index.name + " already.");
  }
  Run(database_, CreateIndexText(table, create.index), file_);
}

void SchemaEditor::Drop(const jet::DropIndex& drop) {
  const TableDef& table = Find(drop.table);
  const IndexDef* index = table.Index(drop.name);
  if (index == nullptr) Refuse("The table " + table.name + " has no index " + drop.name + ".");
  Run(database_, "DROP INDEX " + QuoteName(StoredIndexName(table.name, index->name)), file_);
}

void SchemaEditor::Rebuild(const TableDef& table, const std::vector<std::string>& values) {
  const std::string name = QuoteName(table.name);
  const std::string named = QuoteText(table.name);
  DropKept(table.name);
  std::vector<std::string> paths;
  {
    const StatementHandle rows =
        Prepare(database_,
                "SELECT sql FROM sqlite_master WHERE type = 'index' AND tbl_name = " + named +
                    " AND name LIKE 'fast\\_%' ESCAPE '\\'",
                file_);
    while (sqlite3_step(rows.get()) == SQLITE_ROW) paths.push_back(ColumnText(rows.get(), 0));
  }
  std::string columns;
  std::string select;
  for (std::size_t i = 0; i < values.size(); ++i) {
    columns += (i == 0 ? "" : ", ") + QuoteName(table.columns[i].name);
    select += (i == 0 ? "" : ", ") + values[i];
  }
  const std::int64_t lastKey =
      QueryNumber(database_, "SELECT max(seq) FROM sqlite_sequence WHERE name = " + named, file_);
  Run(database_, CreateTableText(table, kNewTable), file_);
  Run(database_,
      std::string("INSERT INTO ") + kNewTable + " (" + columns + ") SELECT " + select + " FROM " +
          name + " ORDER BY rowid",
      file_);
  Run(database_, "DROP TABLE " + name, file_);
  Run(database_, std::string("ALTER TABLE ") + kNewTable + " RENAME TO " + name, file_);
  for (const IndexDef& index : table.indexes) Run(database_, CreateIndexText(table, index), file_);
  for (const std::string& path : paths) {
    // An access path over a column that is gone goes with it.
    if (sqlite3_exec(database_, path.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) continue;
  }
  if (lastKey == 0) return;
  // Keys of rows that were deleted before are not handed out again.
  Run(database_, "DELETE FROM sqlite_sequence WHERE name = " + named, file_);
  Run(database_,
      "INSERT INTO sqlite_sequence (name, seq) VALUES (" + named + ", max(" +
          std::to_string(lastKey) + ", (SELECT ifnull(max(rowid), 0) FROM " + name + ")))",
      file_);
}

}  // namespace corvanta::inline sql
