#include "store/datafile/opening/CompactionTarget.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <sys/stat.h>

#include <filesystem>

namespace corvanta::inline datafile {
namespace {

bool HasRows(Connection& connection) {
  for (const std::string& table : connection.TableNames()) {
    if (connection.QueryValue("SELECT COUNT(*) FROM [" + table + "]").Int() > 0) return true;
  }
  return false;
}

bool IsUnreadable(const StoreError& error) {
  return error.Code() == StoreErrorCode::NotADataFile ||
         error.Code() == StoreErrorCode::OtherInstallation ||
         error.Code() == StoreErrorCode::WrongPassphrase ||
         error.Code() == StoreErrorCode::Damaged || error.Code() == StoreErrorCode::ReadOnly;
}

// Of a file that is none of the program's own copies: one in which nothing was written yet, or
// somebody's.
Leftover ExamineContent(const DataSource& source, const CopyMark& mark, const Clock& clock) {
  {
    const DatabaseHandle database = OpenUnchecked(source);
    // Reading takes back what a killed program has begun.
    (void)QueryNumber(database.get(), "SELECT count(*) FROM sqlite_master", source.path);
    if (QueryNumber(database.get(), "PRAGMA page_count", source.path) == 0) return Leftover::Empty;
    if (ReadMark(database.get(), source.path) == mark) return Leftover::Own;
  }
  return HasRows(*Connection::Open(source, clock)) ? Leftover::Foreign : Leftover::Empty;
}

// The whole copy of a data file that is there all the same: its program was killed before the copy
// could take its place.
bool IsRestOfNeighbour(const std::string& path, const std::string& password) {
  const std::optional<CopyMark> mark = MarkIn(path, password);
  if (!mark || *mark == CopyMark{}) return false;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(std::filesystem::path(path).parent_path(), error),
       end;
       !error && entry != end; entry.increment(error)) {
    if (MarkOf(entry->path().filename().string()) == *mark) return FileExists(entry->path());
  }
  return false;
}

DataFileLocation Canonical(const DataFileLocation& location) {
  std::error_code ignored;
  const std::filesystem::path folder = std::filesystem::weakly_canonical(location.folder, ignored);
  return folder.empty() ? location : DataFileLocation{folder.string(), location.fileName};
}

}  // namespace

Leftover Examine(const std::string& path, const std::string& password, const CopyMark& mark,
                 Platform& platform) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return Leftover::None;
  if (!S_ISREG(status.st_mode)) return Leftover::Foreign;
  if (status.st_size == 0) return Leftover::Empty;
  try {
    return ExamineContent({path, password, {}}, mark, platform.clock);
  } catch (const StoreError& error) {
    if (!IsUnreadable(error)) throw;
    return Leftover::Foreign;
  }
}

CompactionTarget::CompactionTarget(const DataFileLocation& location, const Writer& writer)
    : dataFile_(location.Path()),
      path_(location.CompactionPath()),
      mark_(MarkOf(location.fileName)) {
  const DataFileLocation place = Canonical(location);
  const std::optional<FileIdentity> dataFile = IdentityOf(dataFile_);
  const bool isOne = dataFile.has_value() && dataFile == IdentityOf(path_);
  if (isOne || place.Path() == place.CompactionPath()) {
    throw StoreError(StoreErrorCode::Sql,
                     "The data file is named as the copy would be that is made of it: " +
                         dataFile_ + ". Give it another name and try again.",
                     {}, dataFile_);
  }
  lock_ = WriterLock::Acquire(path_, writer, LockedName::CompactionTarget);
}

void CompactionTarget::Clear(const std::string& password, Platform& platform) const {
  const Leftover found = Examine(path_, password, mark_, platform);
  // A copy without its data file may be all that is left of it.
  const bool isRest = found == Leftover::Own
                          ? FileExists(dataFile_)
                          : found == Leftover::Foreign && IsRestOfNeighbour(path_, password);
  if (found == Leftover::None || found == Leftover::Empty || isRest) {
    RemoveDataFile(path_, platform.files);
    return;
  }
  if (FolderExists(path_)) {
    throw StoreError(StoreErrorCode::Sql,
                     "The folder " + path_ +
                         " has the name that the copy of the data file needs. Give it another name "
                         "and try again.",
                     {}, dataFile_);
  }
  const std::string kept = SetAside(path_, ".old", platform.files);
  platform.prompts.Tell("Open Data File",
                        "The file " + path_ + " is not a copy of " + dataFile_ +
                            " that compacting it has left behind. It is kept as " + kept +
                            ". Delete it when you do not need it.",
                        Icon::Warning);
}

}  // namespace corvanta::inline datafile
