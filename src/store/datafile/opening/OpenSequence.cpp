#include "store/datafile/opening/OpenSequence.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "store/datafile/CreateDataFile.h"
#include "store/datafile/FilePasswords.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/datafile/opening/OpeningQuestions.h"
#include "store/datafile/opening/RecoverDataFile.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/datafile/schema/AccessPaths.h"
#include "store/datafile/schema/KeptSums.h"
#include "store/datafile/schema/SchemaCheck.h"
#include "store/datafile/upgrade/RenewDataFile.h"
#include "store/sql/StoreError.h"

namespace corvanta::inline datafile {
namespace {

constexpr const char* kTitle = "Open Data File";
constexpr std::size_t kTransferLimit = 16U << 20U;

std::optional<TransferFile> ReadTransferFile(const std::string& path) {
  return TransferFile::FromText(ReadFile(path, kTransferLimit));
}

// True when the file itself is what is wrong, and not the disk under it or another program.
bool IsFileFault(const StoreError& error) {
  return error.Code() == StoreErrorCode::OtherInstallation ||
         error.Code() == StoreErrorCode::NotADataFile || error.Code() == StoreErrorCode::Damaged ||
         error.Code() == StoreErrorCode::Missing;
}

// Without these the program is slower, and without room, where nothing may be written, or while
// another program writes, it must still show what there is. True when something was made; nullopt
// when it was refused, as whatever comes after it would be, each with a wait of its own.
template <typename Ensure>
std::optional<bool> IfPossible(const Ensure& ensure) {
  try {
    return ensure();
  } catch (const StoreError& error) {
    const bool isOfPlace =
        error.Code() == StoreErrorCode::DiskFull || error.Code() == StoreErrorCode::ReadOnly ||
        error.Code() == StoreErrorCode::Io || error.Code() == StoreErrorCode::Locked;
    if (!isOfPlace) throw;
    return std::nullopt;
  }
}

// When the program last started on this file. Nothing depends on it, so a disk that refuses it is
// left to say so when something is entered.
void StampStart(Connection& connection) {
  try {
    connection.Execute("UPDATE tblVerification SET UpdateRun = Now();");
  } catch (const StoreError&) {
    return;
  }
}

}  // namespace

std::unique_ptr<Connection> OpenChecked(const std::string& path, const std::string& password,
                                        Platform& platform) {
  const DataSource source{path, password, {}};
  std::unique_ptr<Connection> connection = Connection::Open(source, platform.clock);
  CheckSchema(*connection);
  const bool isWritable =
      IfPossible([&] { return EnsureAccessPaths(*connection), true; }) &&
      IfPossible([&] { return EnsurePartPaths(*connection, source, platform.clock), true; });
  if (!isWritable) return connection;
  const auto isMade =
      IfPossible([&] { return EnsureKeptSums(*connection, source, platform.clock); });
  if (!isMade.value_or(false)) return connection;
  // With the tables that were made for them in its catalog.
  connection = nullptr;
  return Connection::Open(source, platform.clock);
}

OpenSequence::OpenSequence(Platform& platform, const Writer& writer,
                           std::optional<std::string>& dataPath, FilePasswords& passwords,
                           OpeningQuestions& questions)
    : platform_(platform),
      writer_(writer),
      dataPath_(dataPath),
      passwords_(passwords),
      questions_(questions) {}

std::optional<DataFile> OpenSequence::Run(bool quiet) {
  quiet_ = quiet;
  for (;;) {
    file_ = {};
    Outcome outcome = Outcome::Stop;
    try {
      outcome = Attempt();
    } catch (const StoreError& error) {
      file_ = {};
      outcome = OfferRoadOut(error);
    } catch (const PlatformError& error) {
      file_ = {};
      outcome = AskAfter(error.what(), false);
    }
    if (outcome == Outcome::Opened) return std::move(file_);
    if (outcome == Outcome::Stop) return std::nullopt;
  }
}

OpenSequence::Outcome OpenSequence::Attempt() {
  if (!FindLocation()) return Outcome::Stop;
  FindPassword();
  PrepareFolder();
  if (isReadOnly_) return OpenToLookAt();
  const bool isRequested = TakeReindex();
  const bool hasTransfer = AdoptTransferFile();
  const bool isDue = isRequested || filePassword_ != password_;
  const bool renews = isDue && FileExists(location_.Path());
  file_.isRenewed = renews && Renew();
  if (hasTransfer && file_.isRenewed == renews)
    SetAside(location_.TransferPath(), ".used", platform_.files);
  return FileExists(location_.Path()) ? OpenIt() : AskToCreate();
}

bool OpenSequence::FindLocation() {
  if (!dataPath_.has_value()) SetUpFirstStart(platform_);
  const std::optional<std::string> path =
      dataPath_.has_value() ? dataPath_ : ReadDataPath(platform_.registry);
  if (!path.has_value()) {
    platform_.prompts.Tell("Application Error",
                           "Corrupted application. Please re-install Corvanta Personal Finance.",
                           Icon::Warning);
    return false;
  }
  location_ = DataFileLocation::FromPath(*path);
  isFolder_ = DataFileLocation::NamesFolder(*path);
  return true;
}

// A person is asked before the lock is taken: who thinks must not hold up others.
void OpenSequence::FindPassword() {
  if (const std::optional<std::string> password = passwords_.Of(location_)) {
    password_ = filePassword_ = *password;
    return;
  }
  password_ = FindInstallationPassword(platform_).value_or("");
  filePassword_ = foundKey_.value_or(password_);
}

void OpenSequence::PrepareFolder() {
  isReadOnly_ = false;
  if (isFolder_) platform_.files.CreateFolder(location_.folder);
  if (!FolderExists(location_.folder)) return;
  try {
    AcquireLock();
  } catch (const StoreError& error) {
    isReadOnly_ = error.Code() == StoreErrorCode::ReadOnly && FileExists(location_.Path());
    if (!isReadOnly_) throw;
    return;
  }
  RecoverDataFile(location_, password_, writer_, platform_);
  if (isFolder_ && !FileExists(location_.Path())) Create();
}

void OpenSequence::AcquireLock() {
  if (file_.lock == nullptr) file_.lock = WriterLock::Acquire(location_.Path(), writer_);
}

// A caller that wants no questions wants no sample data either.
void OpenSequence::Create() {
  password_ = InstallationPassword(platform_);
  filePassword_ = password_;
  CreateDataFile(location_, password_, quiet_, platform_, writer_);
}

bool OpenSequence::TakeReindex() {
  const std::string value =
      platform_.registry.Read(Hive::CurrentUser, kSettingsKey, "Reindex").value_or("");
  if (value.empty()) return false;
  try {
    platform_.registry.Write(Hive::CurrentUser, kSettingsKey, "Reindex", "");
  } catch (const PlatformError& error) {
    // Settings that cannot be written keep nobody from the accounts.
    Tell(std::string("The data file is not validated now. ") + error.what());
    return false;
  }
  return Value(value).Double() > 0;
}

// True when the transfer file beside the data file opens it; its settings are taken over then.
bool OpenSequence::AdoptTransferFile() {
  const std::string path = location_.TransferPath();
  if (!FileExists(path) || !FileExists(location_.Path())) return false;
  const std::optional<TransferFile> transfer = ReadTransferFile(path);
  if (!transfer.has_value() || !OpensWith(location_.Path(), transfer->password, platform_)) {
    Tell("The transfer file " + path +
         " does not belong to the data file beside it and was left as it is. Move it away when you "
         "do not need it.");
    return false;
  }
  filePassword_ = transfer->password;
  transfer->WriteSettings(platform_.registry);
  return true;
}

bool OpenSequence::Renew() {
  constexpr const char* kStays = "The data file could not be compacted and stays as it was.\n";
  try {
    if (filePassword_ != password_) password_ = InstallationPassword(platform_);
    const std::optional<std::string> problem = RenewDataFile(
        location_, {filePassword_, password_, UpgradeFailure::Keep}, writer_, platform_);
    filePassword_ = password_;
    foundKey_.reset();
    if (problem.has_value()) {
      Tell("The data file could not be brought up to date. Nothing in it was changed. " + *problem);
    }
    return true;
  } catch (const StoreError& error) {
    if (IsFileFault(error)) throw;
    Tell(std::string(kStays) + error.what());
  } catch (const PlatformError& error) {
    Tell(std::string(kStays) + error.what());
  }
  return false;
}

OpenSequence::Outcome OpenSequence::OpenIt() {
  file_.kept = KeepDataFile(location_.Path(), platform_.files);
  file_.connection = OpenChecked(location_.Path(), filePassword_, platform_);
  file_.password = filePassword_;
  StampStart(*file_.connection);
  return Outcome::Opened;
}

OpenSequence::Outcome OpenSequence::OpenToLookAt() {
  const Outcome outcome = OpenIt();
  Tell(
      "The data file " + location_.Path() +
      " is read-only. It is opened to be looked at: nothing can be changed in it. To work with it, "
      "copy it to a folder of yours with Save As, or change its permissions.");
  return outcome;
}

OpenSequence::Outcome OpenSequence::AskToCreate() {
  if (!quiet_ && !questions_.AgreesToCreate(location_.Path())) {
    return AskForOtherFile();
  }
  platform_.files.CreateFolder(location_.folder);
  AcquireLock();
  Create();
  return OpenIt();
}

OpenSequence::Outcome OpenSequence::AskForOtherFile() {
  file_ = {};
  const std::optional<std::string> path = questions_.OtherFile(location_.folder);
  if (!path.has_value()) {
    Tell("No data file was opened.", false);
    return Outcome::Stop;
  }
  if (dataPath_.has_value()) {
    dataPath_ = *path;
  } else {
    platform_.registry.Write(Hive::CurrentUser, kSettingsKey, "DBPath", *path);
  }
  foundKey_.reset();
  quiet_ = true;
  return Outcome::Again;
}

OpenSequence::Outcome OpenSequence::OfferRoadOut(const StoreError& error) {
  const std::string reason = error.what();
  const bool isNamed = reason.find(location_.Path()) != std::string::npos;
  const std::string refused = "The data file " + (isNamed ? "" : location_.Path() + " ") +
                              "could not be opened.\n" + reason;
  if (error.Code() == StoreErrorCode::OtherInstallation) return AskForKey();
  const bool isFileFault =
      error.Code() == StoreErrorCode::NotADataFile || error.Code() == StoreErrorCode::Damaged;
  return AskAfter(refused, isFileFault);
}

OpenSequence::Outcome OpenSequence::AskForKey() {
  const OpeningQuestions::Key key = questions_.KeyOf(location_.Path());
  if (!key.password) return Follow(key.road);
  foundKey_ = key.password;
  return Outcome::Again;
}

OpenSequence::Outcome OpenSequence::AskAfter(const std::string& words, bool isFileFault) {
  return Follow(questions_.AfterRefusal(words, isFileFault));
}

OpenSequence::Outcome OpenSequence::Follow(OpeningQuestions::Road road) {
  if (road == OpeningQuestions::Road::OtherFile) return AskForOtherFile();
  return road == OpeningQuestions::Road::Again ? Outcome::Again : Outcome::Stop;
}

void OpenSequence::Tell(const std::string& text, bool isWarning) {
  platform_.prompts.Tell(kTitle, text, isWarning ? Icon::Warning : Icon::Information);
}

}  // namespace corvanta::inline datafile
