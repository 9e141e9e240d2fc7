#include "store/engine/StatementCache.h"

#include "store/jet/Parser.h"
#include "store/jet/Writer.h"

#include <sqlcipher/sqlite3.h>

namespace corvanta {
namespace {

constexpr std::size_t kMostStatements = 250;

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
  prepared_->inUse = false;
}

bool StatementCache::IsDefinition(std::string_view sql) {
  normalizer_.Run(sql);
  const jet::Word word = normalizer_.Tokens()[0].word;
  return word == jet::Word::Create || word == jet::Word::Alter || word == jet::Word::Drop;
}

PreparedUse StatementCache::Acquire(std::string_view sql, bool keep) {
  PreparedUse use(Ready(sql, normalizer_.Key(), false));
  Bind(*use, keep);
  return use;
}

PreparedUse StatementCache::AcquireVisit(std::string_view sql) {
  PreparedUse use(Ready(sql, std::string(kVisit) + ' ' + normalizer_.Key(), true));
  // The visitor may run statements of its own.
  Bind(*use, true);
  return use;
}

std::shared_ptr<Prepared> StatementCache::Ready(std::string_view sql, const std::string& key,
                                                bool isVisit) {
  std::shared_ptr<Prepared> prepared = Find(key);
  if (prepared) return prepared;
  prepared = Translate(sql, isVisit);
  prepared->key = key;
  if (normalizer_.IsReusable()) Keep(prepared);
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
  if (entries_.size() <= kMostStatements) return;
  byKey_.erase(entries_.back()->key);
  entries_.pop_back();
}

std::shared_ptr<Prepared> StatementCache::Translate(std::string_view sql, bool isVisit) {
  const jet::Statement statement = jet::Parse(sql, normalizer_.Tokens());
  const jet::WriterContext context{sql, catalog_, normalizer_.Parameters()};
  jet::WrittenStatement written = jet::WriteStatement(context, statement);
  if (isVisit) written.sql = VisitText(written.sql, written.columns.size());
  auto prepared = std::make_shared<Prepared>();
  prepared->handle = Prepare(database_, written.sql, file_);
  prepared->table = std::move(written.table);
  for (jet::ScopeColumn& column : written.columns) {
    const bool counter = column.kind == ColumnKind::Counter;
    prepared->fields.push_back(
        {std::move(column.name), counter ? ColumnKind::Integer : column.kind});
  }
  return prepared;
}

void StatementCache::Bind(Prepared& prepared, bool keep) {
  int number = 0;
  const auto lifetime = keep ? SQLITE_TRANSIENT : SQLITE_STATIC;
  for (const jet::Parameter& parameter : normalizer_.Parameters()) {
    ++number;
    switch (parameter.kind) {
      case jet::ParameterKind::Integer:
        sqlite3_bind_int64(prepared.handle.get(), number, parameter.integer);
        break;
      case jet::ParameterKind::Number:
        sqlite3_bind_double(prepared.handle.get(), number, parameter.number);
        break;
      case jet::ParameterKind::Text:
      case jet::ParameterKind::Date:
        sqlite3_bind_text(prepared.handle.get(), number, parameter.text.data(),
                          static_cast<int>(parameter.text.size()), lifetime);
        break;
    }
  }
}

}  // namespace corvanta
