#include "store/OpenDataFile.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "store/CreateDataFile.h"
#include "store/InstallationKey.h"
#include "store/StoreError.h"
#include "store/opening/KeyRecovery.h"
#include "store/opening/OpenSequence.h"
#include "store/opening/RecoverDataFile.h"
#include "store/upgrade/RenewDataFile.h"

#include <utility>

namespace corvanta {
namespace {

constexpr std::size_t kKeyFileLimit = 16U << 20U;

void RequireDataFile(const DataFileLocation& location) {
  if (FileExists(location.Path())) return;
  throw StoreError(StoreErrorCode::Missing,
                   "Data file could not be found at, " + location.Path() +
                       ". Nothing was changed. Check the path, or create the file.",
                   {}, location.Path());
}

// The lock of a data file that is there, or can be recovered.
std::unique_ptr<WriterLock> LockExisting(const DataFileLocation& location,
                                         const std::string& holder, Platform& platform) {
  if (!FileExists(location.Path()) && !FileExists(location.CompactionPath())) {
    RequireDataFile(location);
  }
  std::unique_ptr<WriterLock> lock = WriterLock::Acquire(location.Path(), holder);
  RecoverDataFile(location, InstallationPassword(platform), platform);
  RequireDataFile(location);
  return lock;
}

std::string KeyPassword(const std::string& keyOrPath, const std::string& dataFile) {
  const bool isFile = FileExists(keyOrPath);
  const std::optional<std::string> password =
      PasswordFromKey(isFile ? ReadFile(keyOrPath, kKeyFileLimit) : keyOrPath);
  if (password.has_value()) return *password;
  throw StoreError(StoreErrorCode::OtherInstallation,
                   isFile ? "There is no key in " + keyOrPath +
                                ". Nothing was changed. Name the file that the key was saved in."
                          : "This is neither a recovery key nor a file that holds one. Nothing was "
                            "changed. Compare it with what you wrote down.",
                   {}, dataFile);
}

}  // namespace

DataFileOpener::DataFileOpener(Platform& platform, std::string holder)
    : platform_(platform), holder_(std::move(holder)) {}

void DataFileOpener::SetDataPath(std::string path) {
  dataPath_ = std::move(path);
}

std::optional<DataFile> DataFileOpener::Open(bool quiet) {
  return OpenSequence(platform_, holder_, dataPath_).Run(quiet);
}

DataFileLocation DataFileOpener::Location() const {
  const std::optional<std::string> path =
      dataPath_.has_value() ? dataPath_ : ReadDataPath(platform_.registry);
  if (path.has_value()) return DataFileLocation::FromPath(*path);
  throw StoreError(StoreErrorCode::Missing,
                   "The settings name no data file. Nothing was changed. Create one, or say where "
                   "it is.");
}

DataFile DataFileOpener::OpenExisting(bool forWriting) {
  const DataFileLocation location = Location();
  if (forWriting) {
    DataFile file{LockExisting(location, holder_, platform_), nullptr};
    file.connection = OpenChecked(location.Path(), InstallationPassword(platform_), platform_);
    return file;
  }
  RequireDataFile(location);
  return {nullptr, Connection::Open({location.Path(), InstallationPassword(platform_), {}},
                                    platform_.clock)};
}

DataFile DataFileOpener::CreateNew(bool emptyFile) {
  if (!dataPath_.has_value() && !ReadDataPath(platform_.registry).has_value()) {
    platform_.registry.Write(Hive::CurrentUser, kSettingsKey, "DBPath", platform_.dataFolder);
  }
  const DataFileLocation location = Location();
  platform_.files.CreateFolder(location.folder);
  DataFile file{WriterLock::Acquire(location.Path(), holder_), nullptr};
  const std::string password = InstallationPassword(platform_);
  const bool isRecovered = RecoverDataFile(location, password, platform_);
  if (FileExists(location.Path())) {
    throw StoreError(StoreErrorCode::Sql,
                     isRecovered ? "The data file " + location.Path() +
                                       " was recovered from the copy that compacting it had left. "
                                       "It is whole. Open it, or choose another place."
                                 : "There is a data file already: " + location.Path() +
                                       ". It was left as it is. Open it, or choose another place.",
                     {}, location.Path());
  }
  CreateDataFile(location, password, emptyFile, platform_);
  file.connection = OpenChecked(location.Path(), password, platform_);
  return file;
}

DataFile DataFileOpener::Validate() {
  const DataFileLocation location = Location();
  DataFile file{LockExisting(location, holder_, platform_), nullptr};
  const std::string password = InstallationPassword(platform_);
  RenewDataFile(location, password, password, UpgradeFailure::Refuse, platform_);
  file.connection = OpenChecked(location.Path(), password, platform_);
  return file;
}

DataFile DataFileOpener::UseKey(const std::string& keyOrPath,
                                const std::function<bool(Connection&)>& admits) {
  const DataFileLocation location = Location();
  RequireDataFile(location);
  const std::string oldPassword = KeyPassword(keyOrPath, location.Path());
  DataFile file{WriterLock::Acquire(location.Path(), holder_), nullptr};
  if (!OpensWith(location.Path(), oldPassword, platform_)) {
    throw StoreError(StoreErrorCode::OtherInstallation,
                     "This key does not open the data file " + location.Path() +
                         ". The file is as it was. Use the key of the installation that wrote it.",
                     {}, location.Path());
  }
  if (admits && !admits(*Connection::Open({location.Path(), oldPassword, {}}, platform_.clock))) {
    return {};
  }
  const std::string password = InstallationPassword(platform_);
  if (oldPassword != password) {
    RenewDataFile(location, oldPassword, password, UpgradeFailure::Keep, platform_);
  }
  file.connection = OpenChecked(location.Path(), password, platform_);
  return file;
}

}  // namespace corvanta
