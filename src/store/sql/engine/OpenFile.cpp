#include "store/sql/engine/OpenFile.h"

#include "platform/FileBeginning.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "store/sql/FailureText.h"
#include "store/sql/engine/Encryption.h"
#include "store/sql/engine/Functions.h"

#include <fcntl.h>
#include <sqlcipher/sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bitset>
#include <string_view>

namespace corvanta::inline sql {
namespace {

// An enciphered page looks like chance: nearly every byte value occurs. Texts, tables and plain
// databases do not.
bool LooksEnciphered(const std::string& beginning) {
  std::bitset<256> seen;
  for (const char byte : beginning) seen.set(static_cast<unsigned char>(byte));
  return beginning.size() == kPageSize && seen.count() > 200;
}

// `happened` is the sentence that the words for the code follow.
[[noreturn]] void Refuse(StoreErrorCode code, const std::string& happened,
                         const std::string& path) {
  throw StoreError(code, path + "\n" + FailureText(code, happened), {}, path);
}

// The library would wait for ever for what somebody writes into a pipe.
void RequireOrdinary(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode)) return;
  Refuse(StoreErrorCode::NotADataFile, "This is a pipe or a device, and no file.", path);
}

void CheckBefore(const std::string& path) {
  if (!FileExists(path)) {
    Refuse(StoreErrorCode::Missing, "This data file does not exist.", path);
  }
  RequireOrdinary(path);
}

// What may not be written can be looked at all the same; a change is refused when it comes.
int FlagsFor(const std::string& path) {
  return IsReadOnly(path) ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
}

// The answer "not a database" stands for a wrong key, another kind of file and a damaged first
// page.
[[noreturn]] void RefuseUnreadable(const std::string& path, const FileKey& key) {
  const std::string beginning = ReadBeginning(path, kPageSize);
  const auto& salt = key.Salt();
  const bool beginsSo = beginning.starts_with(
      std::string_view(reinterpret_cast<const char*>(salt.data()), salt.size()));
  if (beginsSo && key.IsSaltNamed()) {
    Refuse(StoreErrorCode::WrongPassphrase,
           "This passphrase does not open the data file (unless it is damaged at its beginning).",
           path);
  }
  if (beginsSo) {
    Refuse(StoreErrorCode::Damaged, "This data file is damaged at its beginning.", path);
  }
  if (!LooksEnciphered(beginning)) {
    Refuse(StoreErrorCode::NotADataFile, "This file is no data file.", path);
  }
  Refuse(StoreErrorCode::OtherInstallation,
         "This data file belongs to another installation (or is no data file at all).", path);
}

// The library would let every user of the machine read the new file.
void MakeOwnerOnly(const std::string& path) {
  const int descriptor = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
  if (descriptor >= 0) close(descriptor);
}

DatabaseHandle OpenHandle(const DataSource& source, int flags) {
  RequireOrdinary(source.path);
  sqlite3* raw = nullptr;
  // One thread uses a connection, so the library need not lock it for every value that is read.
  const int result = sqlite3_open_v2(source.path.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX,
                                     source.vfs.empty() ? nullptr : source.vfs.c_str());
  DatabaseHandle database(raw);
  if (result != SQLITE_OK) throw ErrorOf(raw, result, {}, source.path);
  sqlite3_extended_result_codes(raw, 1);
  sqlite3_busy_timeout(raw, 4000);
  return database;
}

void SetUp(sqlite3* database, const std::string& path, const Clock& clock) {
  Run(database,
      "PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA; PRAGMA temp_store = MEMORY; "
      "PRAGMA cache_size = -65536",
      path);
  jet::RegisterFunctions(database, clock);
}

// A file that was cut off still opens; its own count of pages tells.
void CheckLength(sqlite3* database, const std::string& path) {
  struct stat status {};
  const std::int64_t pages = QueryNumber(database, "PRAGMA page_count", path);
  if (stat(path.c_str(), &status) != 0 || status.st_size >= pages * kPageSize) return;
  Refuse(StoreErrorCode::Damaged, "This data file ends too early.", path);
}

DatabaseHandle OpenWith(int flags, const DataSource& source, const Clock& clock) {
  CheckBefore(source.path);
  const FileKey key(source.password);
  struct stat status {};
  if (stat(source.path.c_str(), &status) == 0 && status.st_size < kPageSize) {
    Refuse(status.st_size == 0 ? StoreErrorCode::Damaged : StoreErrorCode::NotADataFile,
           status.st_size == 0 ? "This data file is empty." : "This file is no data file.",
           source.path);
  }
  DatabaseHandle database = OpenHandle(source, flags);
  ApplyKey(database.get(), key, source.path);
  try {
    (void)QueryNumber(database.get(), "SELECT count(*) FROM sqlite_master", source.path);
    CheckLength(database.get(), source.path);
  } catch (const StoreError& error) {
    if (error.Code() == StoreErrorCode::Damaged && error.File() == source.path &&
        (sqlite3_errcode(database.get()) & 0xff) == SQLITE_NOTADB) {
      RefuseUnreadable(source.path, key);
    }
    throw;
  }
  SetUp(database.get(), source.path, clock);
  return database;
}

}  // namespace

DatabaseHandle OpenFile(const DataSource& source, const Clock& clock) {
  return OpenWith(FlagsFor(source.path), source, clock);
}

// What is attached to a handle can be written only where the handle itself was opened for it.
DatabaseHandle OpenToCopy(const DataSource& source, const Clock& clock) {
  return OpenWith(SQLITE_OPEN_READWRITE, source, clock);
}

DatabaseHandle OpenUnchecked(const DataSource& source) {
  DatabaseHandle database = OpenHandle(source, FlagsFor(source.path));
  ApplyKey(database.get(), FileKey(source.password), source.path);
  return database;
}

DatabaseHandle CreateFile(const DataSource& source, const Clock& clock, const CopyMark& mark) {
  if (FileExists(source.path)) {
    throw StoreError(StoreErrorCode::Sql,
                     source.path +
                         "\nA file stands here already. It is not written over. Choose "
                         "another name.",
                     {}, source.path);
  }
  MakeOwnerOnly(source.path);
  DatabaseHandle database = OpenHandle(source, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  ApplyKey(database.get(), FileKey(source.password), source.path);
  SetUp(database.get(), source.path, clock);
  Run(database.get(), "BEGIN", source.path);
  if (mark != CopyMark{}) WriteMark(database.get(), "main", mark, source.path);
  // Brings the file and the table of last keys into being.
  Run(database.get(),
      "CREATE TABLE first (id INTEGER PRIMARY KEY AUTOINCREMENT); DROP TABLE first; COMMIT",
      source.path);
  return database;
}

}  // namespace corvanta::inline sql
