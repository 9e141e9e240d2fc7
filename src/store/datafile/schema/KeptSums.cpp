#include "store/datafile/schema/KeptSums.h"

#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace corvanta::inline datafile {
namespace {

constexpr const char* kCounted = "tblTransactions";

// A column of what is kept, and what a row has for it; "@" stands before the row's columns.
struct Part {
  std::string name;
  std::string value;
  const char* type = "INT";
};

struct Kept {
  const char* table;
  std::vector<Part> groups;
  std::vector<Part> figures;
};

// The amount in units, and whether it is just that: the division rounds to the nearest number, as
// reading the decimal figure did. Beyond the limit a sum of many rows could leave the whole
// numbers.
constexpr const char* kUnits =
    "CAST(@\"Amount\" * 10000 + CASE WHEN @\"Amount\" < 0 THEN -0.5 ELSE 0.5 END AS INTEGER)";
std::string IsWhole() {
  return std::string("abs(@\"Amount\") < 1e10 AND ") + kUnits + " / 10000.0 = @\"Amount\"";
}

std::vector<Kept> MakeAllKept() {
  const std::string odd = "CASE WHEN @\"Amount\" IS NULL OR (" + IsWhole() + ") THEN 0 ELSE 1 END";
  const auto units = [](const std::string& also) {
    return "CASE WHEN " + IsWhole() + also + " THEN " + kUnits + " ELSE 0 END";
  };
  const Part account{"AccountID", "@\"AccountID\""};
  return {{kEntrySums,
           {account,
            {"YearMonth", std::string("COALESCE(substr(@\"Date\", 1, 7), '") + kNoMonth + "')",
             "TEXT(7)"},
            {"BankChk", "@\"BankChk\""},
            {"BankRec", "@\"BankRec\""}},
           {{"Entries", "1"},
            {"Odd", odd},
            {"Total", units("")},
            {"PaidIn", units(" AND @\"Amount\" > 0")}}},
          {kCategoryUse, {account, {"CategoryID", "@\"CategoryID\""}}, {}}};
}

const std::vector<Kept>& AllKept() {
  static const std::vector<Kept> kAll = MakeAllKept();
  return kAll;
}

constexpr std::array kColumns = {"AccountID", "AllocatedItem", "Date",  "CategoryID",
                                 "BankChk",   "BankRec",       "Amount"};

// The value of a row that a trigger calls NEW or OLD, or of a row of the table itself.
std::string Of(std::string value, const std::string& row) {
  for (std::size_t at = value.find('@'); at != std::string::npos; at = value.find('@', at)) {
    value.replace(at, 1, row);
  }
  return value;
}

template <typename Text>
std::string Joined(const std::vector<Part>& parts, const std::string& between, const Text& text) {
  std::string joined;
  for (const Part& part : parts) joined += (joined.empty() ? "" : between) + text(part);
  return joined;
}

std::string Names(const std::vector<Part>& parts) {
  return Joined(parts, ", ", [](const Part& part) { return '"' + part.name + '"'; });
}

std::string Quoted(const std::string& name) {
  return '"' + name + '"';
}

// "Entries" = "Entries" + 1 and so on, for the group of the row. Found by its rowid, of which there
// is one, it is changed in place; a group looked for in any other way makes the library set up a
// table of what it is going to change, for every row that is written.
std::string Update(const Kept& kept, const std::string& row, const char* sign) {
  const auto figure = [&](const Part& part) {
    const std::string name = Quoted(part.name);
    return name + " = " + name + " " + sign + " " + Of(part.value, row);
  };
  const auto group = [&](const Part& part) {
    return Quoted(part.name) + " IS " + Of(part.value, row);
  };
  const std::string table = Quoted(kept.table);
  return "UPDATE " + table + " SET " + Joined(kept.figures, ", ", figure) +
         " WHERE rowid = (SELECT rowid FROM " + table + " WHERE " +
         Joined(kept.groups, " AND ", group) + "); ";
}

std::vector<Part> Columns(const Kept& kept) {
  std::vector<Part> columns = kept.groups;
  columns.insert(columns.end(), kept.figures.begin(), kept.figures.end());
  return columns;
}

std::string Insert(const Kept& kept) {
  return "INSERT INTO " + Quoted(kept.table) + " (" + Names(Columns(kept)) + ") ";
}

std::string InsertNew(const Kept& kept) {
  const auto value = [](const Part& part) { return Of(part.value, "NEW."); };
  return Insert(kept) + "SELECT " + Joined(Columns(kept), ", ", value);
}

// A group is made when its first row comes, and stays when its last one goes.
std::string Add(const Kept& kept) {
  if (kept.figures.empty()) return InsertNew(kept) + "; ";
  return Update(kept, "NEW.", "+") + InsertNew(kept) + " WHERE changes() = 0; ";
}

// Of a group without figures only the first row is of interest: any other costs no more than a
// look.
std::string IsNew(const Kept& kept) {
  const std::string counted = "NEW.\"AllocatedItem\" = 0";
  if (!kept.figures.empty()) return counted;
  const auto group = [](const Part& part) {
    return Quoted(part.name) + " IS " + Of(part.value, "NEW.");
  };
  return counted + " AND NOT EXISTS (SELECT 1 FROM " + Quoted(kept.table) + " WHERE " +
         Joined(kept.groups, " AND ", group) + ")";
}

// Name and text of the triggers. What stands before the dot says whose they are.
using Triggers = std::map<std::string, std::string>;

// What the names of its triggers begin with, also of those that a later version has and this one
// has not.
std::string StartOf(const Kept& kept) {
  return std::string(kept.table) + ".";
}

Triggers TriggersOf(const Kept& kept) {
  std::string list;
  std::string differs;
  for (const std::string column : kColumns) {
    list += (list.empty() ? "" : ", ") + Quoted(column);
    differs += (differs.empty() ? "" : " OR ") + ("OLD." + Quoted(column)) + " IS NOT NEW." +
               Quoted(column);
  }
  Triggers triggers;
  const auto make = [&](const char* event, const std::string& when, const std::string& condition,
                        const std::string& does) {
    const std::string name = StartOf(kept) + event;
    triggers[name] = "CREATE TRIGGER " + Quoted(name) + " AFTER " + when + " ON " +
                     Quoted(kCounted) + " WHEN " + condition + " BEGIN " + does + "END";
  };
  const std::string update = "UPDATE OF " + list;
  const std::string isOld = "OLD.\"AllocatedItem\" = 0";
  make("added", "INSERT", IsNew(kept), Add(kept));
  make("joined", update, IsNew(kept) + " AND (" + differs + ")", Add(kept));
  if (kept.figures.empty()) return triggers;
  make("removed", "DELETE", isOld, Update(kept, "OLD.", "-"));
  make("left", update, isOld + " AND (" + differs + ")", Update(kept, "OLD.", "-"));
  return triggers;
}

std::string CountedAnew(const Kept& kept) {
  std::string columns;
  for (const Part& part : kept.groups) {
    columns += (columns.empty() ? "" : ", ") + Of(part.value, "") + " AS " + Quoted(part.name);
  }
  for (const Part& part : kept.figures) {
    columns += ", sum(" + Of(part.value, "") + ") AS " + Quoted(part.name);
  }
  std::string places = "1";
  for (std::size_t i = 2; i <= kept.groups.size(); ++i) places += ", " + std::to_string(i);
  return "SELECT " + columns + " FROM " + Quoted(kCounted) +
         " WHERE \"AllocatedItem\" = 0 GROUP BY " + places;
}

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
  return std::ranges::all_of(AllKept(), [&stored](const Kept& kept) {
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

void Make(sqlite3* database, const Kept& kept, const std::string& file) {
  const std::string table = Quoted(kept.table);
  const auto column = [](const Part& part) { return Quoted(part.name) + " " + part.type; };
  const Triggers triggers = TriggersOf(kept);
  for (const std::string& name : StoredTriggers(database, file)) {
    if (name.starts_with(StartOf(kept))) Run(database, "DROP TRIGGER " + Quoted(name), file);
  }
  // No key and no rule: a statement that changes many rows must need nothing that could be taken
  // back by itself.
  Run(database,
      "DROP TABLE IF EXISTS " + table + "; CREATE TABLE " + table + " (" +
          Joined(Columns(kept), ", ", column) + ")",
      file);
  Run(database, Insert(kept) + CountedAnew(kept), file);
  Run(database,
      "CREATE INDEX \"fast_" + std::string(kept.table).substr(4) + "\" ON " + table + " (" +
          Names(kept.groups) + ")",
      file);
  for (const auto& [name, text] : triggers) Run(database, text, file);
}

bool HasColumns(const Connection& connection) {
  const TableDef* const table = connection.Table(kCounted);
  if (table == nullptr) return false;
  for (const char* column : kColumns) {
    if (table->Column(column) == nullptr) return false;
  }
  // The oldest layout has a list of lines there.
  return table->Column("AllocatedItem")->kind == ColumnKind::Integer;
}

std::string Differences(const std::string& rows, const std::string& others) {
  return "SELECT count(*) FROM (" + rows + " EXCEPT " + others + ")";
}

bool PutRight(sqlite3* database, const Kept& kept, const std::string& file) {
  const std::string table = Quoted(kept.table);
  // Groups that have no row any more are of no use.
  if (!kept.figures.empty()) {
    Run(database, "DELETE FROM " + table + " WHERE \"Entries\" = 0", file);
  }
  const std::string all = "SELECT " + Names(Columns(kept)) + " FROM ";
  const std::string stored = all + table;
  const std::string counted = all + "temp.counted";
  Run(database, "CREATE TEMP TABLE counted AS " + CountedAnew(kept), file);
  const bool differs = QueryNumber(database, Differences(stored, counted), file) > 0 ||
                       QueryNumber(database, Differences(counted, stored), file) > 0;
  if (differs) Run(database, "DELETE FROM " + table + "; " + Insert(kept) + counted, file);
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
  for (const Kept& kept : AllKept()) Make(database.get(), kept, source.path);
  Run(database.get(), "COMMIT", source.path);
  return true;
}

bool RecountKeptSums(const DataSource& source, const Clock& clock) {
  const DatabaseHandle database = OpenFile(source, clock);
  if (!AreKept(database.get(), source.path)) return false;
  Run(database.get(), "BEGIN IMMEDIATE", source.path);
  bool differs = false;
  for (const Kept& kept : AllKept()) {
    differs = PutRight(database.get(), kept, source.path) || differs;
  }
  Run(database.get(), "COMMIT", source.path);
  return differs;
}

}  // namespace corvanta::inline datafile
