#pragma once

#include "store/sql/engine/ConnectionImpl.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {

// The rows behind an undo log: a temporary table into which temporary triggers write, for each row
// that changes, its key and what it was. Temporary tables live in memory and take part in the
// connection's transactions.
class UndoTables {
 public:
  explicit UndoTables(std::vector<std::string> tables) : names_(std::move(tables)) {}

  // Makes the log and its triggers on the tables as they now are.
  void Open(Connection::Impl& store);
  // Takes both away.
  void Close();
  // Lets go of the connection, which is being closed.
  void Release();

  [[nodiscard]] bool IsOpen() const { return last_ != nullptr; }
  // The number of the latest row of the log, 0 when it is empty.
  [[nodiscard]] std::int64_t Last();
  // The rows of a table that these rows of the log are about, each once.
  [[nodiscard]] std::vector<std::int64_t> Keys(std::string_view table, std::int64_t first,
                                               std::int64_t last);
  // Undoes what these rows stand for, the latest first; what that changes is logged behind them.
  void Revert(std::int64_t first, std::int64_t last);
  void Forget(std::int64_t first, std::int64_t last);

 private:
  enum class Kind { Insert = 1, Update = 2, Delete = 3 };
  struct Table {
    std::string name;
    std::string key;
    std::vector<std::string> columns;
    // The statements that take a change of each kind back, prepared when first needed.
    StatementHandle deleteRow;
    StatementHandle restoreRow;
    StatementHandle insertRow;
  };

  void AddTriggers(std::size_t number);
  [[nodiscard]] sqlite3_stmt* StatementFor(Table& table, Kind kind);
  void Apply(sqlite3_stmt* logged);
  void RunOwn(const std::string& sql);

  std::vector<std::string> names_;
  Connection::Impl* store_ = nullptr;
  std::vector<Table> tables_;
  StatementHandle last_;
};

}  // namespace corvanta::inline sql
