#include "store/datafile/schema/SchemaCheck.h"

#include "store/datafile/schema/Schema.h"
#include "store/datafile/schema/Tolerant.h"
#include "store/sql/Connection.h"

#include <string_view>

namespace corvanta::inline datafile {
namespace {

bool HasColumns(const TableDef& table, std::string_view columns) {
  while (!columns.empty()) {
    const std::size_t comma = columns.find(',');
    if (table.Column(columns.substr(0, comma)) == nullptr) return false;
    columns = comma == std::string_view::npos ? "" : columns.substr(comma + 1);
  }
  return true;
}

bool IsWhole(const Connection& connection, const ExpectedColumns& expected) {
  const TableDef* const table = connection.Table(expected.table);
  return table != nullptr && HasColumns(*table, expected.columns);
}

void CreateTable(Connection& connection, const TableText& table) {
  ExecuteTolerant(connection, table.CreateSql());
  if (!table.index.empty()) ExecuteTolerant(connection, table.index);
}

void Repair(Connection& connection, const ExpectedColumns& expected) {
  const TableText& table = SchemaTable(expected.table);
  if (connection.Table(expected.table) == nullptr) CreateTable(connection, table);
  if (IsWhole(connection, expected)) return;
  for (const std::string& statement : table.RepairSql()) ExecuteTolerant(connection, statement);
  if (!table.tidyUp.empty()) ExecuteTolerant(connection, table.tidyUp);
}

}  // namespace

bool CheckSchema(Connection& connection) {
  bool isWhole = true;
  for (const ExpectedColumns& expected : SchemaExpectations()) {
    isWhole = isWhole && IsWhole(connection, expected);
  }
  if (isWhole) return false;
  Transaction transaction = connection.Begin();
  for (const ExpectedColumns& expected : SchemaExpectations()) {
    if (!IsWhole(connection, expected)) Repair(connection, expected);
  }
  // What reads or writes the housekeeping values counts on their one row.
  if (connection.QueryValue("SELECT COUNT(*) FROM tblVerification").Int() == 0) {
    connection.Execute("INSERT INTO tblVerification ([Password]) VALUES (Null)");
  }
  transaction.Commit();
  return true;
}

}  // namespace corvanta::inline datafile
