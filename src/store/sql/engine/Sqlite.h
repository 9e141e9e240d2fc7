// The library's handles and errors, wrapped.
#pragma once

#include "store/sql/StoreError.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace corvanta::inline sql {

struct CloseDatabase {
  void operator()(sqlite3* database) const;
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const;
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// The error that a result code of the library stands for, in words that say what to do.
// `statement` is shown to callers and must hold no values.
[[nodiscard]] StoreError ErrorOf(sqlite3* database, int result, std::string statement,
                                 const std::string& file);

// That a data file is damaged: the library's findings are many lines that help nobody.
[[nodiscard]] StoreError DamageOf(const std::string& file);

[[nodiscard]] StatementHandle Prepare(sqlite3* database, const std::string& sql,
                                      const std::string& file);
// Runs statements of the store's own (in the library's SQL).
void Run(sqlite3* database, const std::string& sql, const std::string& file);
// The first column of the first row as a number; 0 when there is no row.
[[nodiscard]] std::int64_t QueryNumber(sqlite3* database, const std::string& sql,
                                       const std::string& file);
// One column of a row as text; empty for NULL.
[[nodiscard]] std::string ColumnText(sqlite3_stmt* statement, int column);

}  // namespace corvanta::inline sql
