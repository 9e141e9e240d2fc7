#include "store/sql/engine/Sqlite.h"

#include "store/sql/FailureText.h"

#include <sqlcipher/sqlite3.h>

namespace corvanta::inline sql {
namespace {

struct Meaning {
  StoreErrorCode code;
  std::string message;
};

// A value that the schema refuses. The constraints that the store writes are named after what they
// ask for ("Account:TEXT(50)"), which is what a person needs to know.
std::string RefusalOf(const std::string& libraryMessage) {
  const auto after = [&](std::string_view prefix) {
    return libraryMessage.starts_with(prefix) ? libraryMessage.substr(prefix.size())
                                              : std::string();
  };
  if (const std::string column = after("NOT NULL constraint failed: "); !column.empty()) {
    return "The column " + column + " must not be empty.";
  }
  if (const std::string column = after("UNIQUE constraint failed: "); !column.empty()) {
    return "There is already a row with this value of " + column + ".";
  }
  if (const std::string rule = after("CHECK constraint failed: "); !rule.empty()) {
    const std::size_t colon = rule.find(':');
    const std::string column = rule.substr(0, colon);
    const std::string type = colon == std::string::npos ? "" : rule.substr(colon + 1);
    if (type.starts_with("TEXT(")) {
      return "The text is too long: " + column + " holds at most " +
             type.substr(5, type.size() - 6) + " characters.";
    }
    return "The value is of the wrong kind: " + column + " holds a " + type + ".";
  }
  return libraryMessage;
}

StoreErrorCode CodeOf(int result, bool isBareText) {
  switch (result & 0xff) {
    case SQLITE_CONSTRAINT:
    case SQLITE_TOOBIG:
    case SQLITE_MISMATCH:
      return StoreErrorCode::Constraint;
    case SQLITE_FULL:
      return StoreErrorCode::DiskFull;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return StoreErrorCode::Locked;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return StoreErrorCode::ReadOnly;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return StoreErrorCode::Damaged;
    case SQLITE_IOERR:
      return result == SQLITE_IOERR_SHORT_READ ? StoreErrorCode::Damaged : StoreErrorCode::Io;
    case SQLITE_ERROR:
      // A page that does not decrypt is reported with the bare text of the code.
      return isBareText ? StoreErrorCode::Damaged : StoreErrorCode::Sql;
    default:
      return StoreErrorCode::Io;
  }
}

Meaning MeaningOf(sqlite3* database, int result) {
  const std::string text = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(result);
  const StoreErrorCode code = CodeOf(result, text == sqlite3_errstr(SQLITE_ERROR));
  switch (code) {
    case StoreErrorCode::Sql:
      // Also of a statement that a person has written.
      if (text == "parser stack overflow") return {code, "The statement is nested too deeply."};
      return {code, text};
    case StoreErrorCode::Constraint:
      return {code, FailureText(code, RefusalOf(text))};
    case StoreErrorCode::Io:
      return {code, FailureText(code, text)};
    default:
      if (result == SQLITE_IOERR_SHORT_READ) {
        return {code, FailureText(code, "The data file ends too early.")};
      }
      return {code, FailureText(code)};
  }
}

}  // namespace

void CloseDatabase::operator()(sqlite3* database) const {
  sqlite3_close_v2(database);
}
void FinalizeStatement::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

StoreError ErrorOf(sqlite3* database, int result, std::string statement, const std::string& file) {
  const int extended = database != nullptr ? sqlite3_extended_errcode(database) : result;
  Meaning meaning = MeaningOf(database, (extended & 0xff) == (result & 0xff) ? extended : result);
  return StoreError(meaning.code, meaning.message, std::move(statement), file);
}

StoreError DamageOf(const std::string& file) {
  return ErrorOf(nullptr, SQLITE_CORRUPT, {}, file);
}

StatementHandle Prepare(sqlite3* database, const std::string& sql, const std::string& file) {
  sqlite3_stmt* statement = nullptr;
  const int result = sqlite3_prepare_v2(database, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                        &statement, nullptr);
  if (result != SQLITE_OK) throw ErrorOf(database, result, sql, file);
  return StatementHandle(statement);
}

void Run(sqlite3* database, const std::string& sql, const std::string& file) {
  const int result = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) throw ErrorOf(database, result, sql, file);
}

std::int64_t QueryNumber(sqlite3* database, const std::string& sql, const std::string& file) {
  const StatementHandle statement = Prepare(database, sql, file);
  const int result = sqlite3_step(statement.get());
  if (result == SQLITE_ROW) return sqlite3_column_int64(statement.get(), 0);
  if (result != SQLITE_DONE) throw ErrorOf(database, result, sql, file);
  return 0;
}

std::string ColumnText(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  if (text == nullptr) return {};
  return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

}  // namespace corvanta::inline sql
