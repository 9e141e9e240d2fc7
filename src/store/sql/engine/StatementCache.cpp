#include "store/sql/engine/StatementCache.h"

#include "store/sql/binder/Binder.h"
#include "store/sql/parser/Parser.h"
#include "store/sql/writer/FoldWriter.h"
#include "store/sql/writer/Writer.h"

#include <sqlcipher/sqlite3.h>

#include <optional>

namespace corvanta::inline sql {
namespace {

constexpr std::size_t kMaxStatements = 250;

// The library folds the inner query into the outer one, so that no row is made on the way.
std::string VisitText(const std::string& select, std::size_t columns) {
  std::string names;
  for (std::size_t i = 0; i < columns; ++i) {
    names += (i == 0 ? "c" : ", c") + std::to_string(i);
  }
  return "WITH visited(" + names + ") AS (" + select + ") SELECT " + kVisit + "(" + names +
         ") FROM visited";
}

}  // namespace

PreparedUse::PreparedUse(std::shared_ptr<Prepared> prepared) : prepared_(std::move(prepared)) {
  prepared_->inUse = true;
}

PreparedUse::~PreparedUse() {
  if (!prepared_) return;
  sqlite3_reset(prepared_->handle.get());
  sqlite3_clear_bindings(prepared_->handle.get());
  if (prepared_->groups) prepared_->groups->Clear();
  prepared_->inUse = false;
}

PreparedUse StatementCache::Acquire(ReadStatement& statement, bool keep) {
  PreparedUse use(Ready(statement, statement.key, false));
  Bind(use->handle.get(), statement, keep);
  if (use->groups) FoldRows(*use, statement);
  return use;
}

PreparedUse StatementCache::AcquireVisit(ReadStatement& statement) {
  PreparedUse use(Ready(statement, std::string(kVisit) + ' ' + statement.key, true));
  // The visitor may run statements of its own.
  Bind(use->handle.get(), statement, true);
  return use;
}

std::shared_ptr<Prepared> StatementCache::Ready(ReadStatement& statement, const std::string& key,
                                                bool isVisit) {
  std::shared_ptr<Prepared> prepared = Find(key);
  if (prepared) return prepared;
  prepared = Translate(statement, isVisit);
  prepared->key = key;
  if (statement.isReusable) Keep(prepared);
  return prepared;
}

PreparedUse StatementCache::AcquireOwn(const std::string& sql) {
  std::shared_ptr<Prepared> prepared = Find(sql);
  if (!prepared) {
    prepared = std::make_shared<Prepared>();
    prepared->handle = Prepare(database_, sql, file_);
    prepared->key = sql;
    Keep(prepared);
  }
  return PreparedUse(std::move(prepared));
}

void StatementCache::Clear() {
  byKey_.clear();
  entries_.clear();
}

// A statement that is in use (its rows are being read) cannot be run a second time.
std::shared_ptr<Prepared> StatementCache::Find(const std::string& key) {
  const auto found = byKey_.find(key);
  if (found == byKey_.end() || (*found->second)->inUse) return nullptr;
  entries_.splice(entries_.begin(), entries_, found->second);
  return entries_.front();
}

void StatementCache::Keep(const std::shared_ptr<Prepared>& prepared) {
  if (byKey_.contains(prepared->key)) return;
  entries_.push_front(prepared);
  byKey_.emplace(prepared->key, entries_.begin());
  if (entries_.size() <= kMaxStatements) return;
  byKey_.erase(entries_.back()->key);
  entries_.pop_back();
}

std::shared_ptr<Prepared> StatementCache::Translate(ReadStatement& statement, bool isVisit) {
  if (!statement.tree) {
    statement.tree = std::make_unique<jet::Statement>(jet::Parse(statement.sql, statement.tokens));
  }
  jet::Bind({statement.sql, catalog_, statement.parameters, statement.numbers}, *statement.tree);
  auto prepared = std::make_shared<Prepared>();
  prepared->table = jet::TableOf(*statement.tree);
  auto* select = std::get_if<std::unique_ptr<jet::Select>>(statement.tree.get());
  if (select != nullptr) {
    for (const jet::BoundColumn& column : (*select)->columns) {
      const bool counter = column.kind == ColumnKind::Counter;
      prepared->fields.push_back({column.name, counter ? ColumnKind::Integer : column.kind});
    }
  }
  // A visit has no order, which the library would work out for nothing.
  if (isVisit && select != nullptr && !(*select)->top) (*select)->orderBy.clear();
  if (isVisit || select == nullptr || !Fold(**select, *prepared)) {
    const std::string sql = jet::WriteStatement(*statement.tree);
    prepared->handle =
        Prepare(database_, isVisit ? VisitText(sql, prepared->fields.size()) : sql, file_);
  }
  statement.tree.reset();
  return prepared;
}

bool StatementCache::Fold(jet::Select& select, Prepared& prepared) {
  const auto query = jet::WriteFolded(select, GroupTable::kColumns);
  if (!query) return false;
  prepared.groups = std::make_unique<GroupTable::Entry>(groups_, *query);
  prepared.rows = Prepare(database_, prepared.groups->Rows(), file_);
  prepared.handle = Prepare(database_, prepared.groups->Result(), file_);
  return true;
}

void StatementCache::FoldRows(Prepared& prepared, const ReadStatement& statement) {
  prepared.groups->Clear();
  sqlite3_stmt* const rows = prepared.rows.get();
  Bind(rows, statement, false);
  int result = SQLITE_ROW;
  while (result == SQLITE_ROW) result = sqlite3_step(rows);
  std::optional<StoreError> error;
  if (result != SQLITE_DONE) error = ErrorOf(database_, result, prepared.key, file_);
  sqlite3_reset(rows);
  sqlite3_clear_bindings(rows);
  if (error) throw *error;
}

void StatementCache::Bind(sqlite3_stmt* handle, const ReadStatement& statement, bool keep) {
  int number = 0;
  const auto lifetime = keep ? SQLITE_TRANSIENT : SQLITE_STATIC;
  for (const jet::Parameter& parameter : statement.parameters) {
    ++number;
    switch (parameter.kind) {
      case jet::ParameterKind::Integer:
        sqlite3_bind_int64(handle, number, parameter.integer);
        break;
      case jet::ParameterKind::Number:
        sqlite3_bind_double(handle, number, parameter.number);
        break;
      case jet::ParameterKind::Text:
      case jet::ParameterKind::Date:
        sqlite3_bind_text(handle, number, parameter.text.data(),
                          static_cast<int>(parameter.text.size()), lifetime);
        break;
    }
  }
}

}  // namespace corvanta::inline sql
