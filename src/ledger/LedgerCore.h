#pragma once

#include "ledger/Keys.h"
#include "ledger/accounts/AccountAmounts.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "store/sql/UndoLog.h"
#include "store/sql/Value.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline platform {
class Progress;
struct Platform;
}  // namespace corvanta::inline platform

namespace corvanta::inline ledger {

// What every topic of the ledger stands on: the open data file, what can be undone in it, and how
// single rows and many rows are written.
struct LedgerCore {
  // A column and what is written into it.
  struct Field {
    const char* column;
    Value value;
  };
  // A row that is found by its name, or made.
  struct NamedRow {
    const char* table;
    const char* keyColumn;
    std::string find;
    std::string insert;
    const char* step;  // what is undone when it was made
  };

  LedgerCore(Connection& connection, Platform& machine);

  // The key in the first row; 0 when there is none.
  [[nodiscard]] std::int64_t ReadKey(const std::string& sql, std::string_view column);
  // The key of a row that is another one than `key`; 0 when there is none.
  [[nodiscard]] std::int64_t OtherKey(const std::string& sql, std::string_view keyColumn,
                                      std::int64_t key);
  // 0 for a name of blanks.
  std::int64_t FindOrInsert(const NamedRow& row, const std::string& name);
  // A new row for the key 0; the key, or 0 when there is no such row.
  std::int64_t SaveRow(const std::string& table, const std::string& keyColumn, std::int64_t key,
                       const std::vector<Field>& fields);
  // The end of a statement that deletes the row of that key: it is kept when one of the tables
  // names it in a column of the same name.
  [[nodiscard]] static std::string UnlessUsed(const std::string& keyColumn, std::int64_t key,
                                              std::span<const char* const> tables);
  // Every row or, where one fails or the person asks to stop, none; false when it was stopped.
  bool ForEachRow(Keys keys, const std::function<void(std::int64_t)>& change);
  // `change` gets the rows from 0 to count - 1.
  bool ForEachRow(std::size_t count, Progress& progress,
                  const std::function<void(std::size_t)>& change);
  // Transactions and schedules of one category or payee (the column's name) go to another.
  void Merge(const std::string& column, std::int64_t sourceId, std::int64_t targetId);

  Connection& store;
  Platform& platform;
  UndoLog undo;
  ClosedAccounts closed;
  AccountAmounts amounts;
};

}  // namespace corvanta::inline ledger
