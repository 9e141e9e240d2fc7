#pragma once

#include "store/sql/Recordset.h"
#include "store/sql/engine/GroupTable.h"
#include "store/sql/engine/Sqlite.h"
#include "store/sql/engine/StatementReader.h"

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {

// The aggregate that hands the rows of a visit over; see VisitFunction.h.
inline constexpr const char* kVisit = "corvanta_visit";

// A statement that the library has prepared, and what its rows look like.
struct Prepared {
  std::unique_ptr<GroupTable::Entry> groups;  // of a grouped query that is folded
  StatementHandle rows;                       // of one: hands all rows over
  StatementHandle handle;
  std::vector<FieldDef> fields;
  std::string table;  // the one table read or written
  std::string key;    // the statement without its values
  bool inUse = false;
};

// Ends one use of a prepared statement: it no longer holds the file.
class PreparedUse {
 public:
  explicit PreparedUse(std::shared_ptr<Prepared> prepared);
  PreparedUse(PreparedUse&&) noexcept = default;
  PreparedUse& operator=(PreparedUse&&) = delete;
  ~PreparedUse();

  [[nodiscard]] Prepared& operator*() const { return *prepared_; }
  [[nodiscard]] Prepared* operator->() const { return prepared_.get(); }

 private:
  std::shared_ptr<Prepared> prepared_;
};

// Statements ready to run, found by what they do, apart from their values.
class StatementCache {
 public:
  StatementCache(sqlite3* database, GroupTable& groups, const Catalog& catalog,
                 const std::string& file)
      : database_(database), groups_(groups), catalog_(catalog), file_(file) {}

  [[nodiscard]] ReadStatement Read(std::string_view sql) { return reader_.Read(sql); }
  // The statement bound to its values and ready to step; it must be no definition. Texts are copied
  // when `keep` is set; otherwise `statement` and its text must live until the use ends.
  [[nodiscard]] PreparedUse Acquire(ReadStatement& statement, bool keep);
  // The same for a SELECT whose rows all go to the function kVisit of the connection; it yields
  // none.
  [[nodiscard]] PreparedUse AcquireVisit(ReadStatement& statement);
  // A statement of the store's own, in the library's SQL.
  [[nodiscard]] PreparedUse AcquireOwn(const std::string& sql);
  // Forgets all statements: their tables are about to change.
  void Clear();

 private:
  using Entries = std::list<std::shared_ptr<Prepared>>;
  [[nodiscard]] std::shared_ptr<Prepared> Find(const std::string& key);
  void Keep(const std::shared_ptr<Prepared>& prepared);
  [[nodiscard]] std::shared_ptr<Prepared> Ready(ReadStatement& statement, const std::string& key,
                                                bool isVisit);
  [[nodiscard]] std::shared_ptr<Prepared> Translate(ReadStatement& statement, bool isVisit);
  [[nodiscard]] bool Fold(jet::Select& select, Prepared& prepared);
  // Adds up what the result of a folded query is read from.
  void FoldRows(Prepared& prepared, const ReadStatement& statement);
  static void Bind(sqlite3_stmt* handle, const ReadStatement& statement, bool keep);

  sqlite3* database_;
  GroupTable& groups_;
  const Catalog& catalog_;
  const std::string& file_;
  StatementReader reader_;
  Entries entries_;  // the latest used first
  std::unordered_map<std::string_view, Entries::iterator> byKey_;
};

}  // namespace corvanta::inline sql
