#include "store/sql/Connection.h"

#include "platform/TextCase.h"
#include "store/sql/Recordset.h"
#include "store/sql/engine/ConnectionImpl.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/StatementReader.h"

#include <sqlcipher/sqlite3.h>

#include <utility>

namespace corvanta::inline sql {
namespace {

constexpr std::string_view kProvider = "Provider=Microsoft.Jet.OLEDB.4.0;";
constexpr std::string_view kDataSource = "Data Source=";
constexpr std::string_view kPassword = "Jet OLEDB:Database Password=";

// What the program keeps beside the tables of its schema, so that these stay as they are.
constexpr std::string_view kOwnPrefix = "own_";

std::string CreateText(const AccessPath& path) {
  return std::string("CREATE INDEX IF NOT EXISTS \"") + path.name + "\" ON \"" + path.table +
         "\" (" + path.columns + ")";
}

// Makes a path anew that an earlier version made of other columns. Where the disk refuses that, the
// former one stays: the file is then merely slower.
void RenewPath(sqlite3* database, const AccessPath& path, const std::string& file) {
  {
    const StatementHandle stored =
        Prepare(database, "SELECT sql FROM sqlite_master WHERE type = 'index' AND name = ?1", file);
    sqlite3_bind_text(stored.get(), 1, path.name, -1, SQLITE_STATIC);
    if (sqlite3_step(stored.get()) != SQLITE_ROW) return;
    if (ColumnText(stored.get(), 0).ends_with(std::string(" (") + path.columns + ")")) return;
  }
  const std::string sql = std::string("SAVEPOINT renewal; DROP INDEX \"") + path.name + "\"; " +
                          CreateText(path) + "; RELEASE renewal";
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) return;
  if (sqlite3_get_autocommit(database) != 0) return;
  sqlite3_exec(database, "ROLLBACK TO renewal; RELEASE renewal", nullptr, nullptr, nullptr);
}

}  // namespace

DataSource DataSource::FromText(std::string_view connectionText) {
  DataSource source;
  bool found = false;
  while (!connectionText.empty()) {
    // The password may hold any sign, so it is the last part.
    std::size_t end = connectionText.find(';');
    if (connectionText.starts_with(kPassword)) end = std::string_view::npos;
    const std::string_view part = connectionText.substr(0, end);
    if (part.starts_with(kDataSource)) {
      source.path = std::string(part.substr(kDataSource.size()));
      found = true;
    } else if (part.starts_with(kPassword)) {
      source.password = std::string(part.substr(kPassword.size()));
    }
    connectionText =
        end == std::string_view::npos ? std::string_view() : connectionText.substr(end + 1);
  }
  if (!found) throw StoreError(StoreErrorCode::Sql, "The connection text names no data source.");
  return source;
}

std::string DataSource::ToText() const {
  std::string text(kProvider);
  text.append(kDataSource).append(path).append(";").append(kPassword).append(password);
  return text;
}

Connection::Connection(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Connection::~Connection() = default;

std::unique_ptr<Connection> Connection::Open(const DataSource& source, const Clock& clock) {
  return std::unique_ptr<Connection>(
      new Connection(std::make_unique<Impl>(OpenFile(source, clock), source.path)));
}

std::unique_ptr<Connection> Connection::Create(const DataSource& source, const Clock& clock) {
  return std::unique_ptr<Connection>(
      new Connection(std::make_unique<Impl>(CreateFile(source, clock), source.path)));
}

int Connection::Execute(std::string_view sql) {
  return impl_->Execute(sql);
}

Value Connection::QueryValue(std::string_view sql) {
  const Recordset rows = OpenRecordset(sql);
  return rows.Eof() ? Value() : rows.Field(0);
}

Transaction Connection::Begin() {
  return Transaction(*impl_, impl_->BeginTransaction());
}
bool Connection::InTransaction() const {
  return impl_->Depth() > 0;
}
void Connection::OnCommit(std::function<void()> notice) {
  impl_->AddListener(std::move(notice));
}
std::uint64_t Connection::Changes() const {
  return impl_->Changes();
}
const std::string& Connection::Path() const {
  return impl_->Path();
}

std::vector<std::string> Connection::TableNames() const {
  std::vector<std::string> names;
  for (const TableDef& table : impl_->Tables().Tables()) {
    if (!table.name.starts_with(kOwnPrefix)) names.push_back(table.name);
  }
  return names;
}

const TableDef* Connection::Table(std::string_view name) const {
  return impl_->Tables().Find(name);
}

void Connection::EnsureAccessPath(const AccessPath& path) {
  if (Table(path.table) == nullptr) return;
  RenewPath(impl_->Database(), path, Path());
  const std::string sql = CreateText(path);
  // A table of an old layout may lack the column; it is then merely slower.
  const int result = sqlite3_exec(impl_->Database(), sql.c_str(), nullptr, nullptr, nullptr);
  if (result == SQLITE_OK && !impl_->Tables().Find(path.table)->HasAccessPath(path.name)) {
    impl_->ReloadCatalog();
  }
  if (result == SQLITE_OK || result == SQLITE_ERROR) return;
  throw ErrorOf(impl_->Database(), result, sql, Path());
}

std::vector<std::string> Connection::Check() {
  std::vector<std::string> problems;
  try {
    const StatementHandle rows = Prepare(impl_->Database(), "PRAGMA integrity_check", Path());
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(rows.get())) == SQLITE_ROW) {
      const std::string text = ColumnText(rows.get(), 0);
      if (text != "ok") problems.push_back(text);
    }
    if (result != SQLITE_DONE) throw ErrorOf(impl_->Database(), result, {}, Path());
  } catch (const StoreError& error) {
    if (error.Code() != StoreErrorCode::Damaged) throw;
    problems.emplace_back(error.what());
  }
  return problems;
}

Transaction::Transaction(Transaction&& other) noexcept
    : impl_(std::exchange(other.impl_, nullptr)), depth_(other.depth_) {}

Transaction::~Transaction() {
  if (impl_ != nullptr) impl_->Rollback(depth_);
}

void Transaction::Commit() {
  impl_->Commit(depth_);
  impl_ = nullptr;
}

bool IsReadOnlyStatement(std::string_view sql) {
  return KindOfStatement(sql) == StatementKind::Rows;
}

}  // namespace corvanta::inline sql
