// The tables of a data file and the statements that create and repair them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline datafile {

struct ColumnText {
  std::string_view definition;  // the column and its type, as both DDL forms take it
  bool inCreate = true;         // false for a column that only the repair adds
};

struct TableText {
  std::string_view name;
  std::span<const ColumnText> columns;
  std::string_view primaryKey;  // the named constraint; empty for a table without one
  std::string_view index;       // the CREATE INDEX statement; empty for none
  std::string_view tidyUp;      // follows a repair of the table's columns; empty for none

  [[nodiscard]] std::string CreateSql() const;
  // One ADD statement for every column, then the one that adds the constraint.
  [[nodiscard]] std::vector<std::string> RepairSql() const;
};

// The columns that a table must have, separated by commas.
struct ExpectedColumns {
  std::string_view table;
  std::string_view columns;
};

// The sixteen tables in order of creation.
[[nodiscard]] std::span<const TableText> SchemaTables();
// The table of that name, exactly as written in the schema. The name must be one of the sixteen.
[[nodiscard]] const TableText& SchemaTable(std::string_view name);
// What the schema check looks for, in its order.
[[nodiscard]] std::span<const ExpectedColumns> SchemaExpectations();

}  // namespace corvanta::inline datafile
