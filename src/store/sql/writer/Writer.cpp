#include "store/sql/writer/Writer.h"

#include "store/sql/writer/ExprWriter.h"
#include "store/sql/writer/QueryWriter.h"
#include "store/sql/writer/Quote.h"

namespace corvanta::jet {
namespace {

std::string WriteInsert(const Insert& insert) {
  // A single row is refused before anything of it is written, and what triggers write has no rule
  // that could refuse it; see Recordset.
  const bool isOneRow = !insert.values.empty();
  std::string sql = (isOneRow ? "INSERT OR FAIL INTO " : "INSERT INTO ") + QuoteName(insert.table);
  for (std::size_t i = 0; i < insert.columns.size(); ++i) {
    sql += (i == 0 ? " (" : ", ") + QuoteName(insert.columns[i]);
  }
  if (!insert.columns.empty()) sql += ")";
  if (insert.select) return sql + " " + WriteQuery(*insert.select);
  for (std::size_t i = 0; i < insert.values.size(); ++i) {
    sql += (i == 0 ? " VALUES (" : ", ") + WriteValue(*insert.values[i]).sql;
  }
  return sql + ")";
}

std::string WriteUpdate(const Update& update) {
  std::string sql = "UPDATE " + QuoteName(update.table);
  for (std::size_t i = 0; i < update.assignments.size(); ++i) {
    const Assignment& assignment = update.assignments[i];
    sql += (i == 0 ? " SET " : ", ") + QuoteName(assignment.column) + " = " +
           WriteValue(*assignment.value).sql;
  }
  if (update.where) sql += " WHERE " + Write(*update.where).sql;
  return sql;
}

std::string WriteDelete(const Delete& statement) {
  std::string sql = "DELETE FROM " + QuoteName(statement.table);
  if (statement.where) sql += " WHERE " + Write(*statement.where).sql;
  return sql;
}

}  // namespace

std::string WriteStatement(const Statement& statement) {
  if (const auto* select = std::get_if<std::unique_ptr<Select>>(&statement)) {
    return WriteQuery(**select);
  }
  if (const auto* insert = std::get_if<Insert>(&statement)) return WriteInsert(*insert);
  if (const auto* update = std::get_if<Update>(&statement)) return WriteUpdate(*update);
  return WriteDelete(std::get<Delete>(statement));
}

}  // namespace corvanta::jet
