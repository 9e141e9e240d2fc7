#include "store/datafile/backup/BackupMark.h"

#include "platform/Files.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/OpenFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

namespace corvanta::inline datafile {
namespace {

constexpr std::int32_t kMinutesADay = 24 * 60;
constexpr std::int32_t kSecondsAMinute = 60;

// However the data file is named at the moment, through links or from another folder.
std::string WholePath(const std::string& path) {
  std::error_code ignored;
  const std::filesystem::path whole = std::filesystem::weakly_canonical(path, ignored);
  return whole.empty() ? path : whole.string();
}

bool IsTime(DateTime made) {
  return made.date.Year() >= 1980 && made.date.Year() < 2200;
}

}  // namespace

std::optional<CopyMark> MarkIn(const std::string& path, const std::string& password) {
  if (!FileExists(path)) return std::nullopt;
  try {
    const DatabaseHandle database = OpenUnchecked({path, password, {}});
    return ReadMark(database.get(), path);
  } catch (const StoreError&) {
    return std::nullopt;
  }
}

CopyMark BackupMark(const std::string& dataFile, DateTime made) {
  CopyMark mark = MarkOf("backup of " + WholePath(dataFile));
  mark.version = made.date.Serial() * kMinutesADay + made.seconds / kSecondsAMinute;
  return mark;
}

CopyMark Unfinished(const CopyMark& backupMark) {
  return {backupMark.application, -backupMark.version};
}

bool IsUnfinished(const CopyMark& mark) {
  return mark.version < 0 && IsTime(BackupTime(mark));
}

DateTime BackupTime(const CopyMark& mark) {
  // The smallest number there is has no positive one.
  const std::int32_t minutes = std::abs(std::max(mark.version, -INT32_MAX));
  return {Date::FromSerial(minutes / kMinutesADay), minutes % kMinutesADay * kSecondsAMinute};
}

std::optional<DateTime> ReadBackupTime(const std::string& path, const std::string& password,
                                       const std::string& dataFile) {
  const std::optional<CopyMark> mark = MarkIn(path, password);
  if (!mark || mark->application != BackupMark(dataFile, {}).application) return std::nullopt;
  return BackupTime(*mark);
}

std::optional<DateTime> ReadBackupTime(const std::string& path, const std::string& password) {
  const std::optional<CopyMark> mark = MarkIn(path, password);
  // Other copies have the rest of their hash there, which is no minute of these years.
  if (!mark || mark->application == 0) return std::nullopt;
  const DateTime made = BackupTime(*mark);
  return IsTime(made) ? std::optional(made) : std::nullopt;
}

bool IsMarkedAlike(const std::string& path, const std::string& password, const CopyMark& mark) {
  const std::optional<CopyMark> found = MarkIn(path, password);
  return found && found->application == mark.application;
}

}  // namespace corvanta::inline datafile
