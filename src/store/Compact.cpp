#include "store/Compact.h"

#include "platform/Files.h"
#include "store/engine/Encryption.h"
#include "store/engine/OpenFile.h"
#include "store/engine/StoredTable.h"

#include <fcntl.h>
#include <sqlcipher/sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace corvanta {
namespace {

// The empty file that the copy grows in, with the source's permissions.
void MakeEmpty(const DataSource& source, const DataSource& target) {
  struct stat status {};
  const mode_t mode = stat(source.path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0600;
  const int descriptor = open(target.path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
  if (descriptor < 0) {
    throw StoreError(StoreErrorCode::Io,
                     "The folder of the data file cannot be written (" +
                         std::string(std::strerror(errno)) + ").",
                     {}, source.path);
  }
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

std::string Fingerprint(sqlite3* database, const std::string& schema, const std::string& file) {
  std::string text;
  const StatementHandle tables = Prepare(database,
                                         "SELECT name, sql FROM " + schema +
                                             ".sqlite_master WHERE sql IS NOT NULL "
                                             "ORDER BY name",
                                         file);
  while (sqlite3_step(tables.get()) == SQLITE_ROW) {
    text += ColumnText(tables.get(), 0) + "\n" + ColumnText(tables.get(), 1) + "\n";
  }
  const StatementHandle names =
      Prepare(database,
              "SELECT '\"' || replace(name, '\"', '\"\"') || '\"' FROM " + schema +
                  ".sqlite_master WHERE type = 'table' ORDER BY name",
              file);
  while (sqlite3_step(names.get()) == SQLITE_ROW) {
    const std::string count = "SELECT count(*) FROM " + schema + "." + ColumnText(names.get(), 0);
    text += std::to_string(QueryNumber(database, count, file)) + "\n";
  }
  return text;
}

void Export(const DataSource& source, const DataSource& target, const Clock& clock) {
  const DatabaseHandle database = OpenFile(source, clock);
  const FileKey key(target.password);
  MakeEmpty(source, target);
  Attach(database.get(), target, key);
  const std::string& file = target.path;
  SetPageFormat(database.get(), "target", file);
  // The target is nobody's yet: it needs no journal, and one commit syncs it as a whole.
  Run(database.get(), "PRAGMA target.journal_mode = OFF; PRAGMA target.synchronous = FULL", file);
  Run(database.get(), "BEGIN", file);
  (void)QueryNumber(database.get(), "SELECT sqlcipher_export('target')", file);
  if (Fingerprint(database.get(), "main", file) != Fingerprint(database.get(), "target", file)) {
    throw StoreError(StoreErrorCode::Io, "The copy of the data file is not complete.", {}, file);
  }
  Run(database.get(), "COMMIT", file);
  Run(database.get(), "DETACH DATABASE target", file);
}

}  // namespace

void CompactDatabase(const DataSource& source, const DataSource& target, const Clock& clock,
                     Files& files) {
  if (FileExists(target.path)) {
    throw StoreError(StoreErrorCode::Sql, "A file stands in the way of the copy: " + target.path,
                     {}, source.path);
  }
  try {
    Export(source, target, clock);
    // What was written is read back from the file itself.
    (void)OpenFile(target, clock);
  } catch (...) {
    files.Remove(target.path);
    throw;
  }
}

}  // namespace corvanta
