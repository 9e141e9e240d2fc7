#include "store/datafile/schema/KeptSums.h"

#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <array>
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
          {kCategoryUse, {account, {"CategoryID", "@\"CategoryID\""}}, {{"Entries", "1"}}}};
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

// A group is made when its first row comes, and stays when its last one goes.
std::string Add(const Kept& kept) {
  const auto value = [](const Part& part) { return Of(part.value, "NEW."); };
  return Update(kept, "NEW.", "+") + "INSERT INTO " + Quoted(kept.table) + " (" +
         Names(kept.groups) + ", " + Names(kept.figures) + ") SELECT " +
         Joined(kept.groups, ", ", value) + ", " + Joined(kept.figures, ", ", value) +
         " WHERE changes() = 0; ";
}

// Name and text of the triggers. What stands before the dot says whose they are.
using Triggers = std::map<std::string, std::string>;

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
    const std::string name = std::string(kept.table) + "." + event;
    triggers[name] = "CREATE TRIGGER " + Quoted(name) + " AFTER " + when + " ON " +
                     Quoted(kCounted) + " WHEN " + condition + " BEGIN " + does + "END";
  };
  const std::string update = "UPDATE OF " + list;
  const std::string isNew = "NEW.\"AllocatedItem\" = 0";
  const std::string isOld = "OLD.\"AllocatedItem\" = 0";
  const std::string take = Update(kept, "OLD.", "-");
  make("added", "INSERT", isNew, Add(kept));
  make("removed", "DELETE", isOld, take);
  make("left", update, isOld + " AND (" + differs + ")", take);
  make("joined", update, isNew + " AND (" + differs + ")", Add(kept));
  return triggers;
}

std::string CountedAnew(const Kept& kept) {
  const auto group = [](const Part& part) { return Of(part.value, ""); };
  const auto figure = [](const Part& part) {
    return "sum(" + Of(part.value, "") + ") AS " + Quoted(part.name);
  };
  std::string places;
  for (std::size_t i = 1; i <= kept.groups.size(); ++i) {
    places += (i == 1 ? "" : ", ") + std::to_string(i);
  }
  return "SELECT " +
         Joined(kept.groups, ", ",
                [&](const Part& part) { return group(part) + " AS " + Quoted(part.name); }) +
         ", " + Joined(kept.figures, ", ", figure) + " FROM " + Quoted(kCounted) +
         " WHERE \"AllocatedItem\" = 0 GROUP BY " + places;
}

std::string Insert(const Kept& kept) {
  return "INSERT INTO " + Quoted(kept.table) + " (" + Names(kept.groups) + ", " +
         Names(kept.figures) + ") ";
}

// Whether all triggers stand there as this version writes them. Where they do, the tables are
// theirs.
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
    return stored.contains(kept.table) && std::ranges::all_of(wanted, [&](const auto& trigger) {
             const auto found = stored.find(trigger.first);
             return found != stored.end() && found->second == trigger.second;
           });
  });
}

void Make(sqlite3* database, const Kept& kept, const std::string& file) {
  const std::string table = Quoted(kept.table);
  const auto column = [](const Part& part) { return Quoted(part.name) + " " + part.type; };
  const Triggers triggers = TriggersOf(kept);
  for (const auto& [name, text] : triggers) {
    Run(database, "DROP TRIGGER IF EXISTS " + Quoted(name), file);
  }
  // No key and no rule: a statement that changes many rows must need nothing that could be taken
  // back by itself.
  Run(database,
      "DROP TABLE IF EXISTS " + table + "; CREATE TABLE " + table + " (" +
          Joined(kept.groups, ", ", column) + ", " + Joined(kept.figures, ", ", column) + ")",
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
  const std::string all = "SELECT " + Names(kept.groups) + ", " + Names(kept.figures) + " FROM ";
  const std::string stored = all + table + " WHERE \"Entries\" <> 0";
  const std::string counted = all + "temp.counted";
  Run(database, "CREATE TEMP TABLE counted AS " + CountedAnew(kept), file);
  const bool differs = QueryNumber(database, Differences(stored, counted), file) > 0 ||
                       QueryNumber(database, Differences(counted, stored), file) > 0;
  // Groups without a row are of no use any more.
  Run(database, "DELETE FROM " + table + (differs ? "" : " WHERE \"Entries\" = 0"), file);
  if (differs) Run(database, Insert(kept) + counted, file);
  Run(database, "DROP TABLE temp.counted", file);
  return differs;
}

}  // namespace

bool IsKeptSums(std::string_view table) {
  return table == kEntrySums || table == kCategoryUse;
}

bool EnsureKeptSums(const Connection& connection, const DataSource& source, const Clock& clock) {
  if (!HasColumns(connection)) return false;
  if (AreKept(OpenUnchecked(source).get(), source.path)) return false;
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
