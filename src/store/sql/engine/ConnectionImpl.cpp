#include "store/sql/engine/ConnectionImpl.h"

#include "store/sql/engine/CatalogReader.h"
#include "store/sql/engine/SchemaEditor.h"

#include <sqlcipher/sqlite3.h>

namespace corvanta::inline sql {

Connection::Impl::Impl(DatabaseHandle database, std::string path)
    : path_(std::move(path)),
      database_(std::move(database)),
      visits_(database_.get()),
      groups_(database_.get()),
      catalog_(ReadCatalog(database_.get(), path_)),
      statements_(database_.get(), groups_, catalog_, path_) {}

Connection::Impl::~Impl() {
  if (watch_ != nullptr) watch_->Closing();
}

int Connection::Impl::Execute(std::string_view sql) {
  ReadStatement statement = statements_.Read(sql);
  if (statement.kind == StatementKind::Definition) {
    Define(*statement.tree);
    return 0;
  }
  PreparedUse use = statements_.Acquire(statement, false);
  while (Step(*use)) {
  }
  if (sqlite3_stmt_readonly(use->handle.get()) != 0) return 0;
  const int changes = sqlite3_changes(database_.get());
  Changed();
  return changes;
}

bool Connection::Impl::Step(Prepared& prepared) {
  const int result = sqlite3_step(prepared.handle.get());
  if (result == SQLITE_ROW) return true;
  if (result == SQLITE_DONE) return false;
  StoreError error = ErrorOf(database_.get(), result, prepared.key, path_);
  sqlite3_reset(prepared.handle.get());
  throw error;
}

void Connection::Impl::Visit(std::string_view sql, const RowVisitor& visitor) {
  ReadStatement statement = statements_.Read(sql);
  if (statement.kind != StatementKind::Rows) {
    throw StoreError(StoreErrorCode::Sql, "This statement has no rows to visit.");
  }
  const PreparedUse use = statements_.AcquireVisit(statement);
  const VisitFunction::Run run(visits_, visitor);
  try {
    while (Step(*use)) {
    }
  } catch (const StoreError&) {
    run.Rethrow();
    throw;
  }
}

void Connection::Impl::Define(const jet::Statement& statement) {
  statements_.Clear();
  if (watch_ != nullptr) watch_->BeforeDefinition();
  const int depth = BeginTransaction();
  try {
    SchemaEditor(database_.get(), catalog_, path_).Apply(statement);
  } catch (...) {
    Rollback(depth);
    if (watch_ != nullptr) watch_->AfterDefinition();
    throw;
  }
  changed_ = true;
  defined_ = depth > 0;
  Commit(depth);
  ReloadCatalog();
  if (watch_ != nullptr) watch_->AfterDefinition();
}

void Connection::Impl::ReloadCatalog() {
  statements_.Clear();
  catalog_ = ReadCatalog(database_.get(), path_);
}

void Connection::Impl::Changed() {
  changed_ = true;
  if (depth_ > 0) return;
  changed_ = false;
  ++changes_;
  if (watch_ != nullptr) watch_->AfterCommit();
  for (const auto& listener : listeners_) listener();
}

int Connection::Impl::BeginTransaction() {
  if (depth_ == 0) {
    Run(database_.get(), "BEGIN IMMEDIATE", path_);
  } else {
    Run(database_.get(), "SAVEPOINT level" + std::to_string(depth_), path_);
  }
  return depth_++;
}

void Connection::Impl::Commit(int depth) {
  if (sqlite3_get_autocommit(database_.get()) != 0) {
    depth_ = depth;
    throw StoreError(StoreErrorCode::Io,
                     "The change could not be kept and was taken back. Check the disk and try "
                     "again.",
                     {}, path_);
  }
  if (depth > 0) {
    Run(database_.get(), "RELEASE level" + std::to_string(depth), path_);
    depth_ = depth;
    return;
  }
  Run(database_.get(), "COMMIT", path_);
  depth_ = 0;
  defined_ = false;
  ++changes_;
  if (changed_) Changed();
}

void Connection::Impl::Rollback(int depth) {
  depth_ = depth;
  if (depth == 0) changed_ = false;
  const std::string level = "level" + std::to_string(depth);
  const std::string sql =
      depth == 0 ? std::string("ROLLBACK") : "ROLLBACK TO " + level + "; RELEASE " + level;
  // A full disk or a failing one has taken everything back already.
  if (sqlite3_get_autocommit(database_.get()) == 0) {
    sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  }
  if (depth == 0 && watch_ != nullptr) watch_->AfterRollback();
  if (!defined_) return;
  defined_ = depth > 0;
  try {
    ReloadCatalog();
    // What it made for the tables as they were to be went with them.
    if (watch_ != nullptr) watch_->BeforeDefinition();
    if (watch_ != nullptr) watch_->AfterDefinition();
  } catch (const StoreError&) {
    // The rows cannot be read either then, and whoever reads them next is told.
  }
}

}  // namespace corvanta::inline sql
