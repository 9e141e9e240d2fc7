#include "store/datafile/opening/FileSteps.h"

#include "platform/Files.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/CopyMark.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <exception>
#include <filesystem>

namespace corvanta::inline datafile {
namespace {

std::string JournalOf(const std::string& path) {
  return path + "-journal";
}

}  // namespace

KeptFiles KeepDataFile(const std::string& path, Files& files) {
  std::error_code ignored;
  const std::filesystem::path whole = std::filesystem::weakly_canonical(path, ignored);
  const DataFileLocation place{whole.parent_path().string(), whole.filename().string()};
  const std::string copy = place.CompactionPath();
  const std::string needed = "a name that the data file in use needs for itself";
  return files.Own().Keep({{path, "the data file in use"},
                           {JournalOf(place.Path()), needed},
                           {WriterLock::PathOf(path), needed},
                           {copy, needed},
                           {JournalOf(copy), needed},
                           {WriterLock::PathOf(copy), needed}});
}

void RequireStillThere(const std::string& path, const std::optional<FileIdentity>& identity) {
  if (identity.has_value() && IdentityOf(path) == identity) return;
  throw StoreError(StoreErrorCode::Io,
                   "Another program has put another file in the place of " + path +
                       " meanwhile, which is left as it is. Try again.",
                   {}, path);
}

bool HasJournal(const std::string& path) {
  return FileExists(JournalOf(path));
}

void RemoveDataFile(const std::string& path, Files& files) {
  // The file first: a journal without its file means nothing, a file without its journal may be
  // half changed.
  files.Remove(path);
  files.Remove(JournalOf(path));
}

void RemoveDataFileQuietly(const std::string& path, Files& files) noexcept {
  try {
    RemoveDataFile(path, files);
  } catch (const std::exception&) {
    // What is left is removed before the next use of the name.
  }
}

void SettleJournal(const DataSource& source) {
  if (!HasJournal(source.path)) return;
  const DatabaseHandle database = OpenUnchecked(source);
  Run(database.get(), "PRAGMA synchronous = EXTRA; BEGIN IMMEDIATE", source.path);
  // Anything that is written will do: here what stands there already.
  WriteMark(database.get(), "main", ReadMark(database.get(), source.path), source.path);
  Run(database.get(), "COMMIT", source.path);
}

void SettleJournalQuietly(const DataSource& source) noexcept {
  try {
    SettleJournal(source);
  } catch (const StoreError&) {
    // Whoever wants to put another file in its place is refused then.
  }
}

void InstallDataFile(const std::string& from, const std::string& to, Files& files) {
  const std::string journal = JournalOf(to);
  if (FileExists(journal)) {
    if (FileExists(to)) {
      throw StoreError(StoreErrorCode::Io,
                       "The data file is still being changed by another program: " + journal +
                           " stands beside it. Close that program and try again.",
                       {}, to);
    }
    files.Remove(journal);
  }
  files.Replace(from, to);
}

void MoveDataFile(const std::string& from, const std::string& to, Files& files) {
  files.Replace(from, to);
  if (HasJournal(from)) files.Replace(JournalOf(from), JournalOf(to));
}

std::string SetAside(const std::string& path, const std::string& ending, Files& files) {
  std::string target = path + ending;
  for (int number = 2; IdentityOf(target).has_value(); ++number) {
    target = path + ending + std::to_string(number);
  }
  MoveDataFile(path, target, files);
  return target;
}

}  // namespace corvanta::inline datafile
