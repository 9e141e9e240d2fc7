#include "cli/files/SqlCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "store/sql/Recordset.h"
#include "store/sql/StoreError.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "SQL";

using Rows = std::vector<std::vector<Value>>;

bool EveryValue(const Rows& rows, std::size_t column, bool (*test)(const Value&)) {
  return std::ranges::all_of(rows, [&](const std::vector<Value>& row) {
    return row[column].IsNull() || test(row[column]);
  });
}

// A computed column has no kind of its own in the catalog: what stands in it tells.
OutputKind KindOf(const FieldDef& field, const Rows& rows, std::size_t column) {
  if (field.kind == ColumnKind::DateTime) return OutputKind::Date;
  if (field.kind == ColumnKind::Text) return OutputKind::Text;
  const bool hasValue = std::ranges::any_of(
      rows, [&](const std::vector<Value>& row) { return !row[column].IsNull(); });
  if (!hasValue) return OutputKind::Text;
  if (EveryValue(rows, column, [](const Value& v) { return v.IsInteger(); })) {
    return OutputKind::Integer;
  }
  if (EveryValue(rows, column, [](const Value& v) { return !v.IsText(); })) {
    return OutputKind::Number;
  }
  return OutputKind::Text;
}

Rows ReadRows(Recordset& records) {
  Rows rows;
  const int width = static_cast<int>(records.Fields().size());
  for (; !records.Eof(); records.MoveNext()) {
    std::vector<Value> row;
    row.reserve(static_cast<std::size_t>(width));
    for (int column = 0; column < width; ++column) row.push_back(records.Field(column));
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

Parser* SqlCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("sql", "Run one SQL statement on the data file");
  command->AddOption("statement", statement_, "The statement, in the program's dialect")
      ->Required();
  return command;
}

ExitStatus SqlCommand::Run(Session& session) {
  bool reads = true;
  try {
    reads = IsReadOnlyStatement(statement_);
  } catch (const StoreError& error) {
    return session.Refuse(kTitle, error.what());
  }
  const std::optional<DataFile> file = session.Open(reads ? Access::Read : Access::Write);
  if (!file) return ExitStatus::Refused;
  try {
    RunOn(*file->connection, reads, session);
    return ExitStatus::Done;
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
    return session.Refuse(kTitle, error.what());
  }
}

void SqlCommand::RunOn(Connection& connection, bool reads, Session& session) const {
  if (reads) return PrintRows(connection, session);
  const int changed = connection.Execute(statement_);
  session.Tell(kTitle, std::to_string(changed) + (changed == 1 ? " row" : " rows") + " changed");
}

void SqlCommand::PrintRows(Connection& connection, Session& session) const {
  Recordset records = connection.OpenRecordset(statement_);
  Rows rows = ReadRows(records);
  std::vector<OutputColumn> columns;
  for (const FieldDef& field : records.Fields()) {
    columns.push_back({field.name, KindOf(field, rows, columns.size())});
  }
  OutputTable table(std::move(columns));
  for (std::vector<Value>& row : rows) table.AddRow(std::move(row));
  session.Print(table);
}

}  // namespace corvanta::inline cli
