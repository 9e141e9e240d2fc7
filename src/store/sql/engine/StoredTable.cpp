#include "store/sql/engine/StoredTable.h"

#include "platform/TextCase.h"
#include "store/sql/writer/Quote.h"

namespace corvanta::inline sql {
namespace {

using jet::QuoteName;

// The type as it is stored. A word more than the dialect's name gives the library the right
// affinity: dates are text, amounts are floating point.
std::string StoredType(const ColumnDef& column) {
  switch (column.kind) {
    case ColumnKind::Counter:
      return "INTEGER";
    case ColumnKind::Integer:
      return "INT";
    case ColumnKind::Small:
      return "SMALLINT";
    case ColumnKind::Double:
      return "DOUBLE";
    case ColumnKind::Single:
      return "SINGLE REAL";
    case ColumnKind::Currency:
      return "CURRENCY REAL";
    case ColumnKind::DateTime:
      return "DATETIME TEXT";
    case ColumnKind::Text:
      return "TEXT(" + std::to_string(column.size) + ")";
    case ColumnKind::Memo:
      return "MEMO TEXT";
    case ColumnKind::Bit:
      return "BIT INT";
  }
  return "TEXT";
}

// What a value of the column must be; NULL always passes.
std::string Check(const ColumnDef& column) {
  const std::string name = QuoteName(column.name);
  switch (column.kind) {
    case ColumnKind::Integer:
      return name + " = CAST(" + name + " AS INTEGER) AND " + name +
             " BETWEEN -2147483648 AND 2147483647";
    case ColumnKind::Small:
    case ColumnKind::Bit:
      return name + " = CAST(" + name + " AS INTEGER) AND " + name + " BETWEEN -32768 AND 32767";
    case ColumnKind::Double:
    case ColumnKind::Single:
    case ColumnKind::Currency:
      return name + " = CAST(" + name + " AS REAL)";
    case ColumnKind::DateTime:
      return name + " GLOB '[0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]*'";
    case ColumnKind::Text:
      return "length(" + name + ") <= " + std::to_string(column.size);
    case ColumnKind::Counter:
    case ColumnKind::Memo:
      break;
  }
  return {};
}

std::string KindWord(const ColumnDef& column) {
  switch (column.kind) {
    case ColumnKind::Integer:
    case ColumnKind::Small:
    case ColumnKind::Bit:
      return "whole number";
    case ColumnKind::DateTime:
      return "date";
    case ColumnKind::Text:
      return "TEXT(" + std::to_string(column.size) + ")";
    default:
      return "number";
  }
}

std::string StoredColumn(const TableDef& table, const ColumnDef& column) {
  std::string text = QuoteName(column.name) + " " + StoredType(column);
  if (column.kind == ColumnKind::Counter) {
    // The library hands out keys only in its own primary key.
    const bool named = table.primaryKey.size() == 1 &&
                       EqualFolded(table.primaryKey[0], column.name) &&
                       !table.primaryKeyName.empty();
    if (named) text += " CONSTRAINT " + QuoteName(table.primaryKeyName);
    return text + " PRIMARY KEY AUTOINCREMENT";
  }
  if (column.notNull) text += " NOT NULL";
  if (!column.defaultValue.empty()) text += " DEFAULT " + column.defaultValue;
  if (const std::string check = Check(column); !check.empty()) {
    text +=
        " CONSTRAINT " + QuoteName(column.name + ":" + KindWord(column)) + " CHECK(" + check + ")";
  }
  return text;
}

std::string NameList(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + QuoteName(name);
  return list;
}

}  // namespace

std::string CreateTableText(const TableDef& table, std::string_view name) {
  std::string text = "CREATE TABLE " + QuoteName(name) + " (";
  bool hasCounter = false;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    text += (i == 0 ? "\n  " : ",\n  ") + StoredColumn(table, table.columns[i]);
    hasCounter = hasCounter || table.columns[i].kind == ColumnKind::Counter;
  }
  if (!hasCounter && !table.primaryKey.empty()) {
    text += ",\n  CONSTRAINT " + QuoteName(table.primaryKeyName) + " PRIMARY KEY (" +
            NameList(table.primaryKey) + ")";
  }
  return text + "\n)";
}

std::string CreateIndexText(const TableDef& table, const IndexDef& index) {
  return std::string(index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
         QuoteName(StoredIndexName(table.name, index.name)) + " ON " + QuoteName(table.name) +
         " (" + NameList(index.columns) + ")";
}

std::string StoredIndexName(std::string_view table, std::string_view index) {
  return std::string(table) + "." + std::string(index);
}

}  // namespace corvanta::inline sql
