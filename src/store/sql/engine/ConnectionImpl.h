// What a connection, its recordsets and its transactions share.
#pragma once

#include "store/sql/Catalog.h"
#include "store/sql/Connection.h"
#include "store/sql/engine/GroupTable.h"
#include "store/sql/engine/StatementCache.h"
#include "store/sql/engine/VisitFunction.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace corvanta::inline sql {

// Follows the transactions of one connection (the undo log).
class ConnectionWatch {
 public:
  virtual ~ConnectionWatch() = default;
  virtual void AfterCommit() = 0;
  virtual void AfterRollback() = 0;  // of the outermost transaction
  virtual void BeforeDefinition() = 0;
  virtual void AfterDefinition() = 0;  // also when the definition failed
  virtual void Closing() = 0;
};

class Connection::Impl {
 public:
  Impl(DatabaseHandle database, std::string path);
  ~Impl();

  int Execute(std::string_view sql);
  // Steps once; true while there is a row. Throws StoreError with the statement's key.
  bool Step(Prepared& prepared);
  // As Recordset::Visit.
  void Visit(std::string_view sql, const RowVisitor& visitor);
  void Define(const jet::Statement& statement);
  // To be called behind every change: tells the listeners once nothing is open any more.
  void Changed();
  int BeginTransaction();
  void Commit(int depth);
  void Rollback(int depth);
  void ReloadCatalog();

  [[nodiscard]] sqlite3* Database() const { return database_.get(); }
  [[nodiscard]] StatementCache& Statements() { return statements_; }
  [[nodiscard]] const Catalog& Tables() const { return catalog_; }
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] int Depth() const { return depth_; }
  [[nodiscard]] std::uint64_t Changes() const { return changes_; }
  void AddListener(std::function<void()> notice) { listeners_.push_back(std::move(notice)); }
  [[nodiscard]] ConnectionWatch* Watch() const { return watch_; }
  void SetWatch(ConnectionWatch* watch) { watch_ = watch; }

 private:
  std::string path_;
  DatabaseHandle database_;
  VisitFunction visits_;
  GroupTable groups_;
  Catalog catalog_;
  StatementCache statements_;
  std::vector<std::function<void()>> listeners_;
  ConnectionWatch* watch_ = nullptr;
  int depth_ = 0;
  std::uint64_t changes_ = 0;
  bool changed_ = false;
  bool defined_ = false;  // the open transaction changed the schema
};

}  // namespace corvanta::inline sql
