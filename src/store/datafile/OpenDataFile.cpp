#include "store/datafile/OpenDataFile.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "store/datafile/CreateDataFile.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/backup/RestoreDataFile.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/datafile/opening/OpenSequence.h"
#include "store/datafile/opening/RecoverDataFile.h"
#include "store/datafile/upgrade/RenewDataFile.h"
#include "store/sql/StoreError.h"

#include <utility>

namespace corvanta::inline datafile {
namespace {

constexpr std::size_t kKeyFileLimit = 16U << 20U;

void RequireDataFile(const DataFileLocation& location) {
  if (FileExists(location.Path())) return;
  throw StoreError(StoreErrorCode::Missing,
                   "Data file could not be found at, " + location.Path() +
                       ". Nothing was changed. Check the path, or create the file.",
                   {}, location.Path());
}

// This installation's password. Without a key it throws what is wrong with the data file otherwise,
// or that the key is missing.
std::string OwnPassword(const std::string& dataFile, Platform& platform) {
  if (const auto password = FindInstallationPassword(platform)) return *password;
  (void)OpensWith(dataFile, {}, platform);
  throw StoreError(StoreErrorCode::OtherInstallation,
                   dataFile + "\nThis installation has no key that could open this data file (" +
                       InstallationKeyPath(platform) +
                       " is not there). Put the key back from a backup, or use the recovery key or "
                       "the transfer file.",
                   {}, dataFile);
}

// The lock of a data file that is there, or can be recovered. `typed` is the password of its
// passphrase, where it wants one.
std::unique_ptr<WriterLock> LockExisting(const DataFileLocation& location,
                                         const std::optional<std::string>& typed,
                                         const Writer& writer, Platform& platform) {
  if (!FileExists(location.CompactionPath())) RequireDataFile(location);
  std::unique_ptr<WriterLock> lock = WriterLock::Acquire(location.Path(), writer);
  RecoverDataFile(location, typed ? *typed : FindInstallationPassword(platform).value_or(""),
                  writer, platform);
  RequireDataFile(location);
  return lock;
}

void OpenInto(DataFile& file, const DataFileLocation& location, Platform& platform) {
  file.kept = KeepDataFile(location.Path(), platform.files);
  file.connection = OpenChecked(location.Path(), file.password, platform);
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
    : platform_(platform),
      writer_{std::move(holder), {}},
      passwords_(platform),
      key_(platform.files.Own().Keep(
          {{InstallationKeyPath(platform), "the key of this installation"}})) {}

void DataFileOpener::SetDataPath(std::string path) {
  dataPath_ = std::move(path);
}

void DataFileOpener::SetPatience(Patience patience) {
  writer_.patience = std::move(patience);
}

std::optional<DataFile> DataFileOpener::Open(bool quiet, OpeningQuestions& questions) {
  return OpenSequence(platform_, writer_, dataPath_, passwords_, questions).Run(quiet);
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
  // Asked before the lock is taken: who thinks must not hold up others.
  const std::optional<std::string> typed = passwords_.Of(location);
  DataFile file;
  if (forWriting) {
    file.lock = LockExisting(location, typed, writer_, platform_);
  } else {
    RequireDataFile(location);
  }
  file.password = typed ? *typed : OwnPassword(location.Path(), platform_);
  file.kept = KeepDataFile(location.Path(), platform_.files);
  file.connection = forWriting
                        ? OpenChecked(location.Path(), file.password, platform_)
                        : Connection::Open({location.Path(), file.password, {}}, platform_.clock);
  return file;
}

DataFile DataFileOpener::CreateNew(bool emptyFile) {
  if (!dataPath_.has_value() && !ReadDataPath(platform_.registry).has_value()) {
    platform_.registry.Write(Hive::CurrentUser, kSettingsKey, "DBPath", platform_.dataFolder);
  }
  const DataFileLocation location = Location();
  platform_.files.Own().RequireOther(location.Path());
  platform_.files.CreateFolder(location.folder);
  DataFile file;
  file.lock = WriterLock::Acquire(location.Path(), writer_);
  const std::optional<std::string> typed = passwords_.Of(location);
  RecoverDataFile(location, typed ? *typed : FindInstallationPassword(platform_).value_or(""),
                  writer_, platform_);
  if (FileExists(location.Path())) {
    throw StoreError(StoreErrorCode::Sql,
                     "There is a data file already: " + location.Path() +
                         ". It was left as it is. Open it, or choose another place.",
                     {}, location.Path());
  }
  file.password = InstallationPassword(platform_);
  CreateDataFile(location, file.password, emptyFile, platform_, writer_);
  OpenInto(file, location, platform_);
  return file;
}

DataFile DataFileOpener::Validate() {
  const DataFileLocation location = Location();
  const std::optional<std::string> typed = passwords_.Of(location);
  DataFile file;
  file.lock = LockExisting(location, typed, writer_, platform_);
  file.password = typed ? *typed : OwnPassword(location.Path(), platform_);
  RenewDataFile(location, {file.password, file.password, UpgradeFailure::Refuse}, writer_,
                platform_);
  OpenInto(file, location, platform_);
  return file;
}

RestoredFile DataFileOpener::Restore(const std::string& backup, const std::string& password) {
  const DataFileLocation location = Location();
  platform_.files.CreateFolder(location.folder);
  RestoredFile restored;
  DataFile& file = restored.file;
  file.lock = WriterLock::Acquire(location.Path(), writer_);
  const std::optional<std::string> known =
      passwords_.Known(FileExists(location.Path()) ? location.Path() : location.CompactionPath());
  RecoverDataFile(location, known ? *known : FindInstallationPassword(platform_).value_or(""),
                  writer_, platform_);
  // A passphrase that was chosen is never exchanged for a key that lies on the disk.
  const bool isPassphrase = IsFromPassphrase(password);
  if (isPassphrase) passwords_.Learn(password);
  file.password = isPassphrase ? password : known ? *known : InstallationPassword(platform_);
  restored.kept =
      RestoreDataFile(location, {backup, password, {}}, file.password, writer_, platform_);
  OpenInto(file, location, platform_);
  ThinKeptFiles(location, platform_);
  return restored;
}

DataFile DataFileOpener::UseKey(const std::string& keyOrPath,
                                const std::function<bool(Connection&)>& admits) {
  const DataFileLocation location = Location();
  RequireDataFile(location);
  if (WantsPassphrase()) {
    throw StoreError(StoreErrorCode::WrongPassphrase,
                     "The data file " + location.Path() +
                         " opens with its passphrase, here as everywhere. Nothing was changed. It "
                         "takes no other key.",
                     {}, location.Path());
  }
  const std::string oldPassword = KeyPassword(keyOrPath, location.Path());
  DataFile file;
  file.lock = WriterLock::Acquire(location.Path(), writer_);
  // One that was killed at its end has done it all.
  const std::optional<std::string> own = FindInstallationPassword(platform_);
  const bool isOwn = own && OpensWith(location.Path(), *own, platform_);
  if (!isOwn && !OpensWith(location.Path(), oldPassword, platform_)) {
    throw StoreError(StoreErrorCode::OtherInstallation,
                     "This key does not open the data file " + location.Path() +
                         ". The file is as it was. Use the key of the installation that wrote it.",
                     {}, location.Path());
  }
  const std::string& present = isOwn ? *own : oldPassword;
  if (admits && !admits(*Connection::Open({location.Path(), present, {}}, platform_.clock))) {
    return {};
  }
  file.password = InstallationPassword(platform_);
  file.isRenewed = present != file.password;
  if (file.isRenewed) {
    RenewDataFile(location, {present, file.password, UpgradeFailure::Keep}, writer_, platform_);
  }
  OpenInto(file, location, platform_);
  return file;
}

void DataFileOpener::Protect(const std::string& password) {
  const DataFileLocation location = Location();
  const std::optional<std::string> typed = passwords_.Of(location);
  const std::unique_ptr<WriterLock> lock = LockExisting(location, typed, writer_, platform_);
  const std::string oldPassword = typed ? *typed : OwnPassword(location.Path(), platform_);
  const std::string newPassword = password.empty() ? InstallationPassword(platform_) : password;
  RenewDataFile(location, {oldPassword, newPassword, UpgradeFailure::Keep}, writer_, platform_);
  passwords_.Learn(newPassword);
}

bool DataFileOpener::WantsPassphrase() const {
  return datafile::WantsPassphrase(Location().Path());
}

}  // namespace corvanta::inline datafile
