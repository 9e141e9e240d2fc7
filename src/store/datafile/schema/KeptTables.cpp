#include "store/datafile/schema/KeptTables.h"

#include "store/datafile/schema/KeptSums.h"

#include <cstddef>

namespace corvanta::inline datafile {
namespace {

// The amount in units, and whether it is just that: the division rounds to the nearest number, as
// reading the decimal figure did. Beyond the limit a sum of many rows could leave the whole
// numbers.
constexpr const char* kUnits =
    "CAST(@\"Amount\" * 10000 + CASE WHEN @\"Amount\" < 0 THEN -0.5 ELSE 0.5 END AS INTEGER)";
std::string IsWhole() {
  return std::string("abs(@\"Amount\") < 1e10 AND ") + kUnits + " / 10000.0 = @\"Amount\"";
}

std::vector<KeptTable> MakeKeptTables() {
  const std::string odd = "CASE WHEN @\"Amount\" IS NULL OR (" + IsWhole() + ") THEN 0 ELSE 1 END";
  const auto units = [](const std::string& also) {
    return "CASE WHEN " + IsWhole() + also + " THEN " + kUnits + " ELSE 0 END";
  };
  const KeptColumn account{"AccountID", "@\"AccountID\""};
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

// The value of a row that a trigger calls NEW or OLD, or of a row of the table itself.
std::string Of(std::string value, const std::string& row) {
  for (std::size_t at = value.find('@'); at != std::string::npos; at = value.find('@', at)) {
    value.replace(at, 1, row);
  }
  return value;
}

template <typename Text>
std::string Joined(const std::vector<KeptColumn>& parts, const std::string& between,
                   const Text& text) {
  std::string joined;
  for (const KeptColumn& part : parts) joined += (joined.empty() ? "" : between) + text(part);
  return joined;
}

std::string Names(const std::vector<KeptColumn>& columns) {
  return Joined(columns, ", ", [](const KeptColumn& column) { return Quoted(column.name); });
}

std::vector<KeptColumn> Columns(const KeptTable& kept) {
  std::vector<KeptColumn> columns = kept.groups;
  columns.insert(columns.end(), kept.figures.begin(), kept.figures.end());
  return columns;
}

// "Entries" = "Entries" + 1 and so on, for the group of the row. Found by its rowid, of which there
// is one, it is changed in place; a group looked for in any other way makes the library set up a
// table of what it is going to change, for every row that is written.
std::string Update(const KeptTable& kept, const std::string& row, const char* sign) {
  const auto figure = [&](const KeptColumn& part) {
    const std::string name = Quoted(part.name);
    return name + " = " + name + " " + sign + " " + Of(part.value, row);
  };
  const auto group = [&](const KeptColumn& part) {
    return Quoted(part.name) + " IS " + Of(part.value, row);
  };
  const std::string table = Quoted(kept.table);
  return "UPDATE " + table + " SET " + Joined(kept.figures, ", ", figure) +
         " WHERE rowid = (SELECT rowid FROM " + table + " WHERE " +
         Joined(kept.groups, " AND ", group) + "); ";
}

std::string InsertNew(const KeptTable& kept) {
  const auto value = [](const KeptColumn& part) { return Of(part.value, "NEW."); };
  return InsertInto(kept) + "SELECT " + Joined(Columns(kept), ", ", value);
}

// A group is made when its first row comes, and stays when its last one goes.
std::string Add(const KeptTable& kept) {
  if (kept.figures.empty()) return InsertNew(kept) + "; ";
  return Update(kept, "NEW.", "+") + InsertNew(kept) + " WHERE changes() = 0; ";
}

// Of a group without figures only the first row is of interest: any other costs no more than a
// look.
std::string IsNew(const KeptTable& kept) {
  const std::string counted = "NEW.\"AllocatedItem\" = 0";
  if (!kept.figures.empty()) return counted;
  const auto group = [](const KeptColumn& part) {
    return Quoted(part.name) + " IS " + Of(part.value, "NEW.");
  };
  return counted + " AND NOT EXISTS (SELECT 1 FROM " + Quoted(kept.table) + " WHERE " +
         Joined(kept.groups, " AND ", group) + ")";
}

}  // namespace

std::string Quoted(const std::string& name) {
  return '"' + name + '"';
}

const std::vector<KeptTable>& KeptTables() {
  static const std::vector<KeptTable> kAll = MakeKeptTables();
  return kAll;
}

std::string StartOf(const KeptTable& kept) {
  return std::string(kept.table) + ".";
}

Triggers TriggersOf(const KeptTable& kept) {
  std::string list;
  std::string differs;
  for (const std::string column : kCountedColumns) {
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

std::string ColumnNames(const KeptTable& kept) {
  return Names(Columns(kept));
}

std::string InsertInto(const KeptTable& kept) {
  return "INSERT INTO " + Quoted(kept.table) + " (" + ColumnNames(kept) + ") ";
}

// No key and no rule: a statement that changes many rows must need nothing that could be taken back
// by itself.
std::string Definition(const KeptTable& kept) {
  const auto column = [](const KeptColumn& one) { return Quoted(one.name) + " " + one.type; };
  return "CREATE TABLE " + Quoted(kept.table) + " (" + Joined(Columns(kept), ", ", column) + ")";
}

std::string IndexDefinition(const KeptTable& kept) {
  return "CREATE INDEX \"fast_" + std::string(kept.table).substr(4) + "\" ON " +
         Quoted(kept.table) + " (" + Names(kept.groups) + ")";
}

std::string CountedAnew(const KeptTable& kept) {
  std::string columns;
  for (const KeptColumn& part : kept.groups) {
    columns += (columns.empty() ? "" : ", ") + Of(part.value, "") + " AS " + Quoted(part.name);
  }
  for (const KeptColumn& part : kept.figures) {
    columns += ", sum(" + Of(part.value, "") + ") AS " + Quoted(part.name);
  }
  std::string places = "1";
  for (std::size_t i = 2; i <= kept.groups.size(); ++i) places += ", " + std::to_string(i);
  return "SELECT " + columns + " FROM " + Quoted(kCounted) +
         " WHERE \"AllocatedItem\" = 0 GROUP BY " + places;
}

}  // namespace corvanta::inline datafile
