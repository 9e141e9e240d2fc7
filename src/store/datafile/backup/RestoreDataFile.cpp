#include "store/datafile/backup/RestoreDataFile.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/StatusWords.h"
#include "store/datafile/Compact.h"
#include "store/datafile/backup/Generations.h"
#include "store/datafile/opening/CompactionTarget.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/upgrade/Balances.h"
#include "store/sql/StoreError.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>

namespace corvanta::inline datafile {
namespace {

constexpr const char* kKept = " before";

// The name of kept files without a day and a time.
std::string KeptPlace(const DataFileLocation& location) {
  const std::filesystem::path name(location.fileName);
  return DataFileLocation{location.folder, name.stem().string() + kKept + name.extension().string()}
      .Path();
}

std::string KeepAside(const DataFileLocation& location, const std::string& password,
                      Platform& platform) {
  const std::string path = location.Path();
  if (!IdentityOf(path).has_value()) return {};
  // It belongs to the file that is put aside. Of one that cannot be opened it goes along.
  SettleJournalQuietly({path, password, {}});
  const std::string kept = FreeDatedPath(KeptPlace(location), platform.clock.Now());
  MoveDataFile(path, kept, platform.files);
  return kept;
}

void PutBack(const std::string& kept, const std::string& path, Files& files) {
  if (kept.empty() || IdentityOf(path).has_value()) return;
  try {
    MoveDataFile(kept, path, files);
  } catch (const PlatformError&) {
    // The copy that is left at the side is found at the next start, and the kept file by its name.
  }
}

void RequireSame(const DataSource& backup, const DataSource& copy, const Clock& clock) {
  if (SameBalances(VerifiedBalances(backup, clock), VerifiedBalances(copy, clock))) return;
  throw StoreError(StoreErrorCode::Io,
                   "The copy of the backup has other balances than the backup. The data file is as "
                   "it was. Check the disk and try again.",
                   {}, backup.path);
}

// Whoever has opened a kept file, now or since it was put aside, has made it theirs: its name alone
// says nothing of that.
bool RemoveIfUnused(const Generation& kept, Files& files) noexcept {
  constexpr int kDay = 24 * 60;
  const auto minute = [](const DateTime& time) {
    return std::int64_t{time.date.Serial()} * kDay + time.seconds / 60;
  };
  try {
    const auto lock = WriterLock::Acquire(kept.path, std::string("a restore"));
    const auto changed = ChangeTime(kept.path);
    if (!changed || minute(*changed) > minute(kept.made) + 1) return false;
    RemoveDataFile(kept.path, files);
    return true;
  } catch (const std::exception&) {
    // One too many is no harm: the next restore tries again.
    return false;
  }
}

}  // namespace

std::string RestoreDataFile(const DataFileLocation& location, const DataSource& backup,
                            const std::string& password, const Writer& writer, Platform& platform) {
  const StatusWords status(platform.progress, "Restoring the data file...");
  const CompactionTarget target(location, writer);
  const DataSource copy{target.Path(), password, {}};
  target.Clear(password, platform);
  std::string kept;
  try {
    CompactDatabase(backup, copy, platform.clock, platform.files, target.Mark());
    RequireSame(backup, copy, platform.clock);
    kept = KeepAside(location, password, platform);
    InstallDataFile(copy.path, location.Path(), platform.files);
  } catch (...) {
    PutBack(kept, location.Path(), platform.files);
    if (IdentityOf(location.Path()).has_value()) RemoveDataFileQuietly(copy.path, platform.files);
    throw;
  }
  ClearMarkQuietly({location.Path(), password, {}});
  return kept;
}

std::size_t ThinKeptFiles(const DataFileLocation& location, Platform& platform) noexcept {
  std::size_t removed = 0;
  try {
    const std::vector<Generation> kept = FindDatedFiles(KeptPlace(location));
    for (const Generation& old : Superfluous(kept, platform.clock.Today())) {
      if (RemoveIfUnused(old, platform.files)) ++removed;
    }
  } catch (const std::exception&) {
    // Where the folder cannot be read, all of them stay.
  }
  return removed;
}

std::vector<std::string> FindKeptFiles(const DataFileLocation& location) {
  const std::filesystem::path name(location.fileName);
  const std::string start = name.stem().string() + kKept + " ";
  std::vector<std::string> kept;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(location.folder, error), end;
       !error && entry != end; entry.increment(error)) {
    const std::filesystem::path& path = entry->path();
    if (path.extension() != name.extension()) continue;
    if (path.filename().string().starts_with(start)) kept.push_back(path.string());
  }
  // The day and the time in their names put them in order.
  std::ranges::sort(kept, std::greater<>(), [](const std::string& path) {
    return std::filesystem::path(path).stem().string();
  });
  return kept;
}

}  // namespace corvanta::inline datafile
