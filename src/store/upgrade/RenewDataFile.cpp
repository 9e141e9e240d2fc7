#include "store/upgrade/RenewDataFile.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "store/Compact.h"
#include "store/Connection.h"
#include "store/FailureText.h"
#include "store/opening/FileSteps.h"
#include "store/schema/SchemaCheck.h"
#include "store/upgrade/Balances.h"
#include "store/upgrade/Upgrade.h"

#include <map>

namespace corvanta {
namespace {

using Balances = std::map<std::int64_t, double>;

// Reads the whole file: damage that nobody has come across yet must not be carried into the copy.
Balances VerifiedBalances(const DataSource& source, const Clock& clock) {
  const std::unique_ptr<Connection> connection = Connection::Open(source, clock);
  const std::vector<std::string> problems = connection->Check();
  if (!problems.empty()) {
    throw StoreError(StoreErrorCode::Damaged,
                     FailureText(StoreErrorCode::Damaged, problems.front()), {}, source.path);
  }
  return AccountBalances(*connection);
}

// What the person reads while the file is worked on.
class StatusText {
 public:
  StatusText(Progress& progress, const std::string& text)
      : progress_(progress), former_(progress.SetStatus(text)) {}
  ~StatusText() { progress_.SetStatus(former_); }
  StatusText(const StatusText&) = delete;
  StatusText& operator=(const StatusText&) = delete;

 private:
  Progress& progress_;
  std::string former_;
};

std::optional<std::string> UpgradeCopy(const DataSource& copy, const Clock& clock) {
  const std::unique_ptr<Connection> connection = Connection::Open(copy, clock);
  const std::optional<std::string> problem = UpgradeAndCleanUp(*connection);
  const bool isRepaired = CheckSchema(*connection);
  // A table that was missing stood in the way of the upgrade and is there now.
  return problem.has_value() && isRepaired ? UpgradeAndCleanUp(*connection) : problem;
}

}  // namespace

std::optional<std::string> RenewDataFile(const DataFileLocation& location,
                                         const std::string& oldPassword,
                                         const std::string& newPassword, UpgradeFailure onFailure,
                                         Platform& platform) {
  const StatusText status(platform.progress, "Validating the data file...");
  const DataSource source{location.Path(), oldPassword, {}};
  const DataSource copy{location.CompactionPath(), newPassword, {}};
  const Balances before = VerifiedBalances(source, platform.clock);
  RemoveDataFile(copy.path, platform.files);
  try {
    CompactDatabase(source, copy, platform.clock, platform.files);
    const std::optional<std::string> problem = UpgradeCopy(copy, platform.clock);
    if (problem.has_value() && onFailure == UpgradeFailure::Refuse) {
      throw StoreError(StoreErrorCode::Sql,
                       "The data file could not be upgraded and is as it was. " + *problem, {},
                       source.path);
    }
    if (!SameBalances(before, VerifiedBalances(copy, platform.clock))) {
      throw StoreError(StoreErrorCode::Io,
                       "The compacted copy has other balances than the data file, which is as it "
                       "was. Check the disk and try again.",
                       {}, source.path);
    }
    InstallDataFile(copy.path, source.path, platform.files);
    return problem;
  } catch (...) {
    RemoveDataFileQuietly(copy.path, platform.files);
    throw;
  }
}

}  // namespace corvanta
