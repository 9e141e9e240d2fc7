#pragma once

#include "store/sql/Catalog.h"
#include "store/sql/Value.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Clock;
}

namespace corvanta::inline sql {

class Recordset;
class Transaction;
class UndoLog;

// Where a data file is and what opens it.
struct DataSource {
  std::string path;
  std::string password;
  std::string vfs;  // the library's file layer; empty for its own (tests put a faulty one in)

  // "Provider=...;Data Source=<path>;Jet OLEDB:Database Password=<password>" in either order, with
  // or without the provider; throws StoreError(Sql) when it names no data source.
  [[nodiscard]] static DataSource FromText(std::string_view connectionText);
  [[nodiscard]] std::string ToText() const;  // with the provider
};

// An index that only makes the engine fast; the catalog does not show it.
struct AccessPath {
  const char* table;
  const char* name;     // begins with fast_
  const char* columns;  // in double quotes, separated by ", "
};

// One open data file, and the Jet dialect on it. Everything is on one thread.
//
// Every operation throws StoreError. A statement outside a Transaction is on disk when it returns.
class Connection {
 public:
  // Opens an existing data file and reads its catalog. Refused, and the file left as it is:
  // Missing, NotADataFile, OtherInstallation, Damaged, ReadOnly, Locked, DiskFull.
  static std::unique_ptr<Connection> Open(const DataSource& source, const Clock& clock);
  // Creates an empty data file. Refused with Sql when the path exists.
  static std::unique_ptr<Connection> Create(const DataSource& source, const Clock& clock);

  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // Runs one statement that returns no rows; returns how many rows it changed.
  int Execute(std::string_view sql);
  // Opens the rows of a SELECT, or all rows of a table named alone.
  [[nodiscard]] Recordset OpenRecordset(std::string_view sql);
  // The first column of the first row; NULL when there is no row.
  [[nodiscard]] Value QueryValue(std::string_view sql);

  // Starts a transaction that is rolled back unless committed. They nest.
  [[nodiscard]] Transaction Begin();
  [[nodiscard]] bool InTransaction() const;
  // How often something was committed that may have changed rows.
  [[nodiscard]] std::uint64_t Changes() const;
  // Called after every commit that changed something.
  void OnCommit(std::function<void()> notice);

  // The schema's own tables in order of creation, without what only makes the engine fast and
  // without the tables that the program keeps beside them (own_..., which have to be named).
  [[nodiscard]] std::vector<std::string> TableNames() const;
  // The table of that name (without regard to case), or nullptr; valid until the next DDL.
  [[nodiscard]] const TableDef* Table(std::string_view name) const;

  // Makes the index where it is missing, and anew where it was made of other columns; not on a
  // table that is not there.
  void EnsureAccessPath(const AccessPath& path);
  // Reads every page and every index of the file; the problems found, empty when it is sound.
  [[nodiscard]] std::vector<std::string> Check();

  [[nodiscard]] const std::string& Path() const;

  class Impl;

 private:
  explicit Connection(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
  friend class Recordset;
  friend class Transaction;
  friend class UndoLog;
};

// A guard: rolls its changes back when it goes out of scope uncommitted.
class Transaction {
 public:
  Transaction(Transaction&& other) noexcept;
  Transaction& operator=(Transaction&&) = delete;
  ~Transaction();
  void Commit();

 private:
  friend class Connection;
  Transaction(Connection::Impl& impl, int depth) : impl_(&impl), depth_(depth) {}
  Connection::Impl* impl_;
  int depth_;
};

// True when the statement only reads. Throws StoreError(Sql) when it cannot be read.
[[nodiscard]] bool IsReadOnlyStatement(std::string_view sql);

}  // namespace corvanta::inline sql
