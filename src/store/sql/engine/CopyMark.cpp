#include "store/sql/engine/CopyMark.h"

#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <sodium.h>
#include <sqlcipher/sqlite3.h>

#include <array>
#include <cstring>

namespace corvanta::inline sql {

CopyMark MarkOf(std::string_view dataFileName) {
  constexpr std::string_view kPurpose = "corvanta copy";
  std::array<unsigned char, crypto_generichash_BYTES> hash{};
  crypto_generichash(hash.data(), hash.size(),
                     reinterpret_cast<const unsigned char*>(dataFileName.data()),
                     dataFileName.size(), reinterpret_cast<const unsigned char*>(kPurpose.data()),
                     kPurpose.size());
  CopyMark mark;
  std::memcpy(&mark.application, hash.data(), sizeof mark.application);
  std::memcpy(&mark.version, hash.data() + sizeof mark.application, sizeof mark.version);
  mark.application |= 1;
  return mark;
}

void WriteMark(sqlite3* database, const std::string& schema, const CopyMark& mark,
               const std::string& file) {
  Run(database,
      "PRAGMA " + schema + ".application_id = " + std::to_string(mark.application) + "; PRAGMA " +
          schema + ".user_version = " + std::to_string(mark.version),
      file);
}

CopyMark ReadMark(sqlite3* database, const std::string& file) {
  return {static_cast<std::int32_t>(QueryNumber(database, "PRAGMA application_id", file)),
          static_cast<std::int32_t>(QueryNumber(database, "PRAGMA user_version", file))};
}

void CreateMarked(const DataSource& source, const Clock& clock, const CopyMark& mark) {
  (void)CreateFile(source, clock, mark);
}

void ChangeMark(const DataSource& source, const CopyMark& mark) {
  const DatabaseHandle database = OpenUnchecked(source);
  Run(database.get(), "PRAGMA synchronous = EXTRA; BEGIN IMMEDIATE", source.path);
  WriteMark(database.get(), "main", mark, source.path);
  Run(database.get(), "COMMIT", source.path);
}

void ClearMark(const DataSource& source) {
  ChangeMark(source, {});
}

void ChangeMarkQuietly(const DataSource& source, const CopyMark& mark) noexcept {
  try {
    ChangeMark(source, mark);
  } catch (const StoreError&) {
    // It says whose copy the file was, which is true.
  }
}

void ClearMarkQuietly(const DataSource& source) noexcept {
  ChangeMarkQuietly(source, {});
}

}  // namespace corvanta::inline sql
