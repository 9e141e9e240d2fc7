#include "store/datafile/Compact.h"

#include "platform/Files.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/sql/engine/Encryption.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <fcntl.h>
#include <sqlcipher/sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>
#include <vector>

namespace corvanta::inline datafile {
namespace {

// The empty file that the copy grows in, with the source's permissions; its owner may write it even
// where the source is read-only.
void MakeEmpty(const DataSource& source, const DataSource& target) {
  struct stat status {};
  const bool isKnown = stat(source.path.c_str(), &status) == 0;
  const mode_t mode = isKnown ? (status.st_mode & 0777) | 0600 : 0600;
  const int descriptor = open(target.path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
  if (descriptor < 0 && (errno == ENOSPC || errno == EDQUOT)) {
    throw ErrorOf(nullptr, SQLITE_FULL, {}, target.path);
  }
  if (descriptor < 0) {
    throw StoreError(StoreErrorCode::Io,
                     "The folder of the data file cannot be written (" +
                         std::string(std::strerror(errno)) + ").",
                     {}, source.path);
  }
  // An administrator's copy of somebody's file stays that person's. Anybody else may not give files
  // away, and keeps what he made.
  if (isKnown && fchown(descriptor, status.st_uid, status.st_gid) != 0) errno = 0;
  close(descriptor);
}

void Attach(sqlite3* database, const DataSource& target, const FileKey& key) {
  const StatementHandle attach =
      Prepare(database, "ATTACH DATABASE ?1 AS target KEY ?2", target.path);
  // Bound, so that the key never stands in a statement.
  sqlite3_bind_text(attach.get(), 1, target.path.c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(attach.get(), 2, key.Text().c_str(), -1, SQLITE_STATIC);
  const int result = sqlite3_step(attach.get());
  if (result != SQLITE_DONE) throw ErrorOf(database, result, {}, target.path);
}

// The library's own tables are made by the library; what it has counted for its own use is no part
// of the data.
constexpr std::string_view kOwnObjects = " name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ";

std::vector<std::string> Texts(sqlite3* database, const std::string& sql, const std::string& file) {
  std::vector<std::string> texts;
  const StatementHandle rows = Prepare(database, sql, file);
  int result = SQLITE_ROW;
  while ((result = sqlite3_step(rows.get())) == SQLITE_ROW) {
    texts.push_back(ColumnText(rows.get(), 0));
  }
  if (result != SQLITE_DONE) throw ErrorOf(database, result, {}, file);
  return texts;
}

std::vector<std::string> TableNames(sqlite3* database, const std::string& schema,
                                    const std::string& file) {
  return Texts(database,
               "SELECT '\"' || replace(name, '\"', '\"\"') || '\"' FROM " + schema +
                   ".sqlite_master WHERE type = 'table' AND (name = 'sqlite_sequence' OR" +
                   std::string(kOwnObjects) + ") ORDER BY name",
               file);
}

// Runs the stored definitions of these types again for the target.
void Define(sqlite3* database, const std::string& types, const std::string& file) {
  const std::string sql = "SELECT sql FROM main.sqlite_master WHERE sql IS NOT NULL AND type IN (" +
                          types + ") AND" + std::string(kOwnObjects) + "ORDER BY rowid";
  for (std::string text : Texts(database, sql, file)) {
    for (const std::string_view start : {"CREATE TABLE ", "CREATE INDEX ", "CREATE UNIQUE INDEX ",
                                         "CREATE VIEW ", "CREATE TRIGGER "}) {
      if (text.starts_with(start)) text.insert(start.size(), "target.");
    }
    Run(database, text, file);
  }
}

// An index that is made over all rows at once fills its pages; one that grows with them, in the
// order of their keys, leaves a third of every page empty.
void CopyAll(sqlite3* database, const std::string& file) {
  Define(database, "'table'", file);
  const std::string keys = "\"sqlite_sequence\"";
  for (const std::string& table : TableNames(database, "main", file)) {
    if (table == keys) continue;
    Run(database, "INSERT INTO target." + table + " SELECT * FROM main." + table, file);
  }
  Run(database,
      "DELETE FROM target." + keys + "; INSERT INTO target." + keys + " SELECT * FROM main." + keys,
      file);
  Define(database, "'index'", file);
  Define(database, "'view', 'trigger'", file);
}

std::string Fingerprint(sqlite3* database, const std::string& schema, const std::string& file) {
  std::string text;
  const std::string objects = "SELECT name || char(10) || sql FROM " + schema +
                              ".sqlite_master WHERE sql IS NOT NULL AND" +
                              std::string(kOwnObjects) + "ORDER BY name";
  for (const std::string& object : Texts(database, objects, file)) text += object + "\n";
  for (const std::string& table : TableNames(database, schema, file)) {
    const std::string count = "SELECT count(*) FROM " + schema + "." + table;
    text += table + " " + std::to_string(QueryNumber(database, count, file)) + "\n";
  }
  return text;
}

void Export(const DataSource& source, const DataSource& target, const CopyMark& mark,
            const Clock& clock) {
  const DatabaseHandle database = OpenToCopy(source, clock);
  const FileKey key(target.password);
  MakeEmpty(source, target);
  Attach(database.get(), target, key);
  const std::string& file = target.path;
  SetPageFormat(database.get(), "target", file);
  Run(database.get(), "PRAGMA target.journal_mode = DELETE; PRAGMA target.synchronous = EXTRA",
      file);
  // One transaction: broken off, it leaves nothing behind that could be taken for the data.
  Run(database.get(), "BEGIN", file);
  CopyAll(database.get(), file);
  if (Fingerprint(database.get(), "main", file) != Fingerprint(database.get(), "target", file)) {
    throw StoreError(StoreErrorCode::Io, "The copy of the data file is not complete.", {}, file);
  }
  WriteMark(database.get(), "target", mark, file);
  Run(database.get(), "COMMIT", file);
  Run(database.get(), "DETACH DATABASE target", file);
}

}  // namespace

void CompactDatabase(const DataSource& source, const DataSource& target, const Clock& clock,
                     Files& files, const CopyMark& mark) {
  if (FileExists(target.path)) {
    throw StoreError(StoreErrorCode::Sql, "A file stands in the way of the copy: " + target.path,
                     {}, source.path);
  }
  try {
    Export(source, target, mark, clock);
    // What was written is read back from the file itself.
    (void)OpenFile(target, clock);
  } catch (...) {
    RemoveDataFileQuietly(target.path, files);
    throw;
  }
}

void ShrinkDatabase(const DataSource& source, const Clock& clock) {
  constexpr std::int64_t kWorthIt = 10;  // one page in ten
  const DatabaseHandle database = OpenFile(source, clock);
  const std::int64_t pages = QueryNumber(database.get(), "PRAGMA page_count", source.path);
  const std::int64_t unused = QueryNumber(database.get(), "PRAGMA freelist_count", source.path);
  if (unused * kWorthIt > pages) Run(database.get(), "VACUUM", source.path);
}

}  // namespace corvanta::inline datafile
