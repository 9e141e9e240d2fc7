#include "store/datafile/schema/KeptSums.h"

#include "store/datafile/schema/KeptTables.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace corvanta::inline datafile {
namespace {

// Whether all triggers stand there as this version writes them, and no others that would count the
// same rows once more. Where they do, the tables are theirs.
bool AreKept(sqlite3* database, const std::string& file) {
  Triggers stored;
  const StatementHandle rows =
      Prepare(database,
              "SELECT name, sql FROM sqlite_master WHERE type = 'trigger' OR type = 'table'", file);
  while (sqlite3_step(rows.get()) == SQLITE_ROW) {
    stored[ColumnText(rows.get(), 0)] = ColumnText(rows.get(), 1);
  }
  return std::ranges::all_of(KeptTables(), [&stored](const KeptTable& kept) {
    const Triggers wanted = TriggersOf(kept);
    const auto count = std::ranges::count_if(stored, [start = StartOf(kept)](const auto& each) {
      return each.first.starts_with(start);
    });
    if (count != std::ssize(wanted)) return false;
    return stored.contains(kept.table) && std::ranges::all_of(wanted, [&](const auto& trigger) {
             const auto found = stored.find(trigger.first);
             return found != stored.end() && found->second == trigger.second;
           });
  });
}

std::vector<std::string> StoredTriggers(sqlite3* database, const std::string& file) {
  std::vector<std::string> names;
  const StatementHandle rows =
      Prepare(database, "SELECT name FROM sqlite_master WHERE type = 'trigger'", file);
  while (sqlite3_step(rows.get()) == SQLITE_ROW) names.push_back(ColumnText(rows.get(), 0));
  return names;
}

void Make(sqlite3* database, const KeptTable& kept, const std::string& file) {
  const std::string table = Quoted(kept.table);
  const Triggers triggers = TriggersOf(kept);
  for (const std::string& name : StoredTriggers(database, file)) {
    if (name.starts_with(StartOf(kept))) Run(database, "DROP TRIGGER " + Quoted(name), file);
  }
  Run(database, "DROP TABLE IF EXISTS " + table + "; " + Definition(kept), file);
  Run(database, InsertInto(kept) + CountedAnew(kept), file);
  Run(database, IndexDefinition(kept), file);
  for (const auto& [name, text] : triggers) Run(database, text, file);
}

bool HasColumns(const Connection& connection) {
  const TableDef* const table = connection.Table(kCounted);
  if (table == nullptr) return false;
  for (const char* column : kCountedColumns) {
    if (table->Column(column) == nullptr) return false;
  }
  // The oldest layout has a list of lines there.
  return table->Column("AllocatedItem")->kind == ColumnKind::Integer;
}

std::string Differences(const std::string& rows, const std::string& others) {
  return "SELECT count(*) FROM (" + rows + " EXCEPT " + others + ")";
}

bool PutRight(sqlite3* database, const KeptTable& kept, const std::string& file) {
  const std::string table = Quoted(kept.table);
  // Groups that have no row any more are of no use.
  if (!kept.figures.empty()) {
    Run(database, "DELETE FROM " + table + " WHERE \"Entries\" = 0", file);
  }
  const std::string all = "SELECT " + ColumnNames(kept) + " FROM ";
  const std::string stored = all + table;
  const std::string counted = all + "temp.counted";
  Run(database, "CREATE TEMP TABLE counted AS " + CountedAnew(kept), file);
  const bool differs = QueryNumber(database, Differences(stored, counted), file) > 0 ||
                       QueryNumber(database, Differences(counted, stored), file) > 0;
  if (differs) Run(database, "DELETE FROM " + table + "; " + InsertInto(kept) + counted, file);
  Run(database, "DROP TABLE temp.counted", file);
  return differs;
}

// Categories that are gone and that no entry has any more would have their accounts added up.
void DropUnused(const DataSource& source, const Clock& clock) {
  const std::string table = Quoted(kCategoryUse);
  const std::string unused =
      " FROM " + table +
      " WHERE \"CategoryID\" NOT IN (SELECT \"CategoryID\" FROM \"tblCategory\") AND NOT EXISTS "
      "(SELECT 1 FROM \"tblTransactions\" AS t WHERE t.\"AllocatedItem\" = 0 AND "
      "t.\"AccountID\" = " +
      table + ".\"AccountID\" AND t.\"CategoryID\" = " + table + ".\"CategoryID\")";
  const std::string count = "SELECT count(*)" + unused;
  if (QueryNumber(OpenUnchecked(source).get(), count, source.path) == 0) return;
  Run(OpenFile(source, clock).get(), "DELETE" + unused, source.path);
}

}  // namespace

bool IsKeptSums(std::string_view table) {
  return table == kEntrySums || table == kCategoryUse;
}

bool EnsureKeptSums(const Connection& connection, const DataSource& source, const Clock& clock) {
  if (!HasColumns(connection)) return false;
  if (AreKept(OpenUnchecked(source).get(), source.path)) {
    DropUnused(source, clock);
    return false;
  }
  const DatabaseHandle database = OpenFile(source, clock);
  Run(database.get(), "BEGIN IMMEDIATE", source.path);
  for (const KeptTable& kept : KeptTables()) Make(database.get(), kept, source.path);
  Run(database.get(), "COMMIT", source.path);
  return true;
}

bool RecountKeptSums(const DataSource& source, const Clock& clock) {
  const DatabaseHandle database = OpenFile(source, clock);
  if (!AreKept(database.get(), source.path)) return false;
  Run(database.get(), "BEGIN IMMEDIATE", source.path);
  bool differs = false;
  for (const KeptTable& kept : KeptTables()) {
    differs = PutRight(database.get(), kept, source.path) || differs;
  }
  Run(database.get(), "COMMIT", source.path);
  return differs;
}

}  // namespace corvanta::inline datafile
