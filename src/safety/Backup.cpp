#include "safety/Backup.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/StatusWords.h"
#include "platform/TextCase.h"
#include "safety/FileStore.h"
#include "safety/SafetyKeys.h"
#include "safety/Transfer.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/backup/DataFileDraft.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/sql/FailureText.h"

#include <fmt/format.h>

#include <filesystem>
#include <functional>

namespace corvanta::inline safety {
namespace {

constexpr const char* kTitle = "Backup";
constexpr std::string_view kFailed = "BackupFailed";
constexpr int kDaysAWeek = 7;

// In the order of the setting's choices.
enum class Frequency { EveryTime, OnceADay, OnceAWeek };

std::filesystem::path DefaultFolder(const std::string& dataFile) {
  return std::filesystem::path(dataFile).parent_path() / "Backup";
}

// Each data file has a failure of its own.
std::string FailureName(const BackedFile& file) {
  return fmt::format("{} {:016x}", kFailed, std::hash<std::string>{}(file.path));
}

std::string TransferBeside(const std::string& backup) {
  return DataFileLocation::FromPath(backup).TransferPath();
}

// Known before anything is written, so that there is no backup without its transfer file.
void RequireFreeTransfer(const BackedFile& file, const std::string& backup,
                         const BackupWishes& wishes) {
  if (!wishes.withTransfer) return;
  const std::string transfer = TransferBeside(backup);
  if (IsFreeForTransfer(transfer, file.password)) return;
  throw FileRefused("There is a file " + transfer +
                    " already that is no transfer file of this data file. Nothing was backed up. "
                    "Choose another name for the backup, or move the file away.");
}

}  // namespace

std::string Backup::PlaceOf(const std::string& dataFile) const {
  const std::string chosen(Trim(Settings(platform_.registry).Text(Setting::Backup)));
  if (chosen.empty()) {
    return (DefaultFolder(dataFile) / std::filesystem::path(dataFile).filename()).string();
  }
  if (FolderExists(chosen)) {
    return (chosen / std::filesystem::path(dataFile).filename()).string();
  }
  return chosen;
}

std::vector<Generation> Backup::Generations(const BackedFile& file) const {
  return FindGenerations({PlaceOf(file.path), file.path, file.password});
}

bool Backup::IsDue(const BackedFile& file) const {
  const Settings settings(platform_.registry);
  if (settings.IsOn(Setting::SkipBackup)) return false;
  const auto frequency = static_cast<Frequency>(settings.Choice(Setting::BFreq));
  if (frequency == Frequency::EveryTime) return true;
  const std::vector<Generation> generations = Generations(file);
  if (generations.empty()) return true;
  const int age = platform_.clock.Today().Serial() - generations.front().made.date.Serial();
  // A clock that was set back must not keep backups from being made.
  return age < 0 || age >= (frequency == Frequency::OnceADay ? 1 : kDaysAWeek);
}

BackupWishes Backup::Chosen() const {
  return {Settings(platform_.registry).IsOn(Setting::BackupFS), false};
}

void Backup::Write(const BackedFile& file, const std::string& path, bool isPlace) {
  const StatusWords status(platform_.progress, "Backing up the data file...");
  DataFileDraft draft({file.path, file.password, {}}, path,
                      BackupMark(file.path, platform_.clock.Now()), writer_, platform_);
  if (isPlace) MakeRoom({path, file.path, file.password}, platform_.files);
  draft.Install();
}

// The data file is safe by then: what goes wrong now must not take it away again.
void Backup::AddRest(const BackedFile& file, const BackupWishes& wishes, BackupResult& result) {
  try {
    if (wishes.withFileStore) {
      result.files = CopyFileStore(FileStoreOf(file.path), FileStoreOf(result.path),
                                   OnOther::KeepOld, platform_.files);
    }
    if (wishes.withTransfer) {
      WriteTransfer(TransferBeside(result.path), file.path, file.password, FormerFile::Refuse,
                    platform_);
    }
  } catch (const std::exception& error) {
    throw PlatformError("The data file is backed up as " + result.path +
                        ", but what belongs to it is not. " + error.what());
  }
}

BackupResult Backup::Make(const BackedFile& file, const BackupWishes& wishes) {
  try {
    BackupResult result{PlaceOf(file.path)};
    const std::filesystem::path folder = std::filesystem::path(result.path).parent_path();
    RequireFreeTransfer(file, result.path, wishes);
    // A disk that is not there must not be taken for a folder that is.
    if (folder == DefaultFolder(file.path)) platform_.files.CreateFolder(folder.string());
    Write(file, result.path, true);
    AddRest(file, wishes, result);
    Remember(file, {});
    result.removed = Thin(file);
    return result;
  } catch (const StoreError& error) {
    Remember(file, FailureText(error));
    throw;
  } catch (const PlatformError& error) {
    Remember(file, error.what());
    throw;
  }
}

BackupResult Backup::MakeAt(const BackedFile& file, const std::string& path,
                            const BackupWishes& wishes) {
  const bool isFree =
      !IdentityOf(path).has_value() || ReadBackupTime(path, file.password, file.path).has_value();
  if (isFree || IdentityOf(path) == IdentityOf(file.path)) return MakeOver(file, path, wishes);
  throw StoreError(StoreErrorCode::Sql,
                   "There is a file " + path +
                       " already that is no backup of this data file. It was left as it is. Choose "
                       "another name.",
                   {}, path);
}

BackupResult Backup::MakeOver(const BackedFile& file, const std::string& path,
                              const BackupWishes& wishes) {
  RequireFreeTransfer(file, path, wishes);
  BackupResult result{path};
  Write(file, path, false);
  AddRest(file, wishes, result);
  Remember(file, {});
  return result;
}

bool Backup::MakeDue(const BackedFile& file) noexcept {
  try {
    if (!IsDue(file)) return false;
    Make(file, Chosen());
    return true;
  } catch (const std::exception&) {
    // Remembered by then, and told at the next start.
    return false;
  }
}

std::size_t Backup::Thin(const BackedFile& file) {
  std::size_t removed = 0;
  for (const Generation& old : Superfluous(Generations(file), platform_.clock.Today())) {
    try {
      RemoveDataFile(old.path, platform_.files);
      ++removed;
    } catch (const PlatformError&) {
      // One too many is no harm: the next backup tries again.
    }
  }
  return removed;
}

void Backup::Remember(const BackedFile& file, const std::string& failure) {
  if (failure.empty()) {
    platform_.registry.DeleteValue(Hive::CurrentUser, kSafetyKey, FailureName(file));
    return;
  }
  platform_.registry.Write(Hive::CurrentUser, kSafetyKey, FailureName(file),
                           "The backup of " +
                               platform_.locale.FormatShortDate(platform_.clock.Today()) +
                               " failed. " + failure);
}

std::optional<std::string> Backup::Failure(const BackedFile& file) const {
  return platform_.registry.Read(Hive::CurrentUser, kSafetyKey, FailureName(file));
}

void Backup::RemindOfFailure(const BackedFile& file) {
  const std::optional<std::string> failure = Failure(file);
  if (!failure) return;
  const std::string before = *failure + "\nYour latest changes are in no backup.";
  if (!platform_.prompts.Ask(kTitle, before + " Do you wish to make one now?", Icon::Warning)) {
    return;
  }
  const BackupResult result = Make(file, Chosen());
  platform_.prompts.Tell(kTitle, "The data file is backed up as " + result.path + ".");
}

}  // namespace corvanta::inline safety
