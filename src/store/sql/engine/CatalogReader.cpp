#include "store/sql/engine/CatalogReader.h"

#include "store/sql/engine/Sqlite.h"
#include "store/sql/engine/StoredTable.h"
#include "store/sql/writer/Quote.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <cstdlib>

namespace corvanta::inline sql {
namespace {

using jet::QuoteText;

ColumnKind KindFrom(const std::string& storedType, bool isKey) {
  if (storedType == "INTEGER" && isKey) return ColumnKind::Counter;
  if (storedType.starts_with("TEXT")) return ColumnKind::Text;
  if (storedType.starts_with("DATETIME")) return ColumnKind::DateTime;
  if (storedType.starts_with("DOUBLE")) return ColumnKind::Double;
  if (storedType.starts_with("SINGLE")) return ColumnKind::Single;
  if (storedType.starts_with("CURRENCY")) return ColumnKind::Currency;
  if (storedType.starts_with("MEMO")) return ColumnKind::Memo;
  if (storedType.starts_with("BIT")) return ColumnKind::Bit;
  if (storedType.starts_with("SMALLINT")) return ColumnKind::Small;
  return ColumnKind::Integer;
}

// The name of the primary key stands only in the text that created the table.
std::string PrimaryKeyName(const std::string& sql) {
  const std::size_t key = sql.find(" PRIMARY KEY");
  if (key == std::string::npos || key == 0 || sql[key - 1] != '"') return {};
  const std::size_t open = sql.rfind('"', key - 2);
  const std::string before = "CONSTRAINT ";
  if (open == std::string::npos || open < before.size() ||
      sql.compare(open - before.size(), before.size(), before) != 0) {
    return {};
  }
  return sql.substr(open + 1, key - open - 2);
}

template <typename Row>
void ForEachRow(sqlite3* database, const std::string& sql, const std::string& file, Row row) {
  const StatementHandle statement = Prepare(database, sql, file);
  while (true) {
    const int result = sqlite3_step(statement.get());
    if (result == SQLITE_DONE) return;
    if (result != SQLITE_ROW) throw ErrorOf(database, result, sql, file);
    row(statement.get());
  }
}

void ReadColumns(sqlite3* database, const std::string& file, TableDef& table) {
  std::vector<std::pair<int, std::string>> keys;
  ForEachRow(database, "PRAGMA table_info(" + QuoteText(table.name) + ")", file,
             [&](sqlite3_stmt* row) {
               ColumnDef column;
               column.name = ColumnText(row, 1);
               const std::string type = ColumnText(row, 2);
               const int key = sqlite3_column_int(row, 5);
               column.kind = KindFrom(type, key > 0);
               if (column.kind == ColumnKind::Text) column.size = std::atoi(type.c_str() + 5);
               column.notNull = sqlite3_column_int(row, 3) != 0;
               column.defaultValue = ColumnText(row, 4);
               if (key > 0) keys.emplace_back(key, column.name);
               table.columns.push_back(std::move(column));
             });
  std::sort(keys.begin(), keys.end());
  for (auto& [position, name] : keys) table.primaryKey.push_back(std::move(name));
  if (table.primaryKeyName.empty()) table.primaryKey.clear();
}

void ReadIndexes(sqlite3* database, const std::string& file, TableDef& table) {
  ForEachRow(
      database, "PRAGMA index_list(" + QuoteText(table.name) + ")", file, [&](sqlite3_stmt* row) {
        const std::string stored = ColumnText(row, 1);
        const std::string prefix = table.name + ".";
        const bool isPath = stored.starts_with(kAccessPathPrefix);
        if (!isPath && !stored.starts_with(prefix)) return;
        IndexDef index;
        index.name = isPath ? stored : stored.substr(prefix.size());
        index.unique = sqlite3_column_int(row, 2) != 0;
        ForEachRow(database, "PRAGMA index_info(" + QuoteText(stored) + ")", file,
                   [&](sqlite3_stmt* part) { index.columns.push_back(ColumnText(part, 2)); });
        auto& indexes = isPath ? table.accessPaths : table.indexes;
        indexes.insert(indexes.begin(), std::move(index));
      });
}

}  // namespace

// What is kept of another table's rows (own_Kept...) is there only as long as the file keeps it.
Catalog ReadCatalog(sqlite3* database, const std::string& file) {
  std::vector<TableDef> tables;
  ForEachRow(database,
             "SELECT name, sql FROM sqlite_master AS m WHERE type = 'table' AND name NOT LIKE "
             "'sqlite\\_%' ESCAPE '\\' AND (name NOT LIKE 'own\\_Kept%' ESCAPE '\\' OR EXISTS "
             "(SELECT 1 FROM sqlite_master WHERE type = 'trigger' AND name = m.name || '.added')) "
             "ORDER BY rowid",
             file, [&](sqlite3_stmt* row) {
               TableDef table;
               table.name = ColumnText(row, 0);
               table.primaryKeyName = PrimaryKeyName(ColumnText(row, 1));
               tables.push_back(std::move(table));
             });
  Catalog catalog;
  for (TableDef& table : tables) {
    ReadColumns(database, file, table);
    ReadIndexes(database, file, table);
    catalog.Add(std::move(table));
  }
  return catalog;
}

}  // namespace corvanta::inline sql
