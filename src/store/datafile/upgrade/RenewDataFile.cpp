#include "store/datafile/upgrade/RenewDataFile.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/StatusWords.h"
#include "store/datafile/Compact.h"
#include "store/datafile/opening/CompactionTarget.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/schema/KeptSums.h"
#include "store/datafile/schema/SchemaCheck.h"
#include "store/datafile/upgrade/Balances.h"
#include "store/datafile/upgrade/Upgrade.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/CopyMark.h"
#include "store/sql/engine/Sqlite.h"

#include <map>

namespace corvanta::inline datafile {
namespace {

using Balances = std::map<std::int64_t, double>;

std::optional<std::string> UpgradeCopy(const DataSource& copy, const Clock& clock) {
  const std::unique_ptr<Connection> connection = Connection::Open(copy, clock);
  const std::optional<std::string> problem = UpgradeAndCleanUp(*connection);
  const bool isRepaired = CheckSchema(*connection);
  // A table that was missing stood in the way of the upgrade and is there now.
  return problem.has_value() && isRepaired ? UpgradeAndCleanUp(*connection) : problem;
}

// Makes the copy all that the data file is to be. Returns what kept it from being upgraded.
std::optional<std::string> FinishCopy(const DataSource& source, const DataSource& copy,
                                      const Balances& expected, UpgradeFailure onFailure,
                                      const Clock& clock) {
  std::optional<std::string> problem = UpgradeCopy(copy, clock);
  if (problem.has_value() && onFailure == UpgradeFailure::Refuse) {
    throw StoreError(StoreErrorCode::Sql,
                     "The data file could not be upgraded and is as it was. " + *problem, {},
                     source.path);
  }
  RecountKeptSums(copy, clock);
  // Tables that were written anew have left their old pages.
  ShrinkDatabase(copy, clock);
  if (!SameBalances(expected, VerifiedBalances(copy, clock))) {
    throw StoreError(StoreErrorCode::Io,
                     "The compacted copy has other balances than the data file, which is as it "
                     "was. Check the disk and try again.",
                     {}, source.path);
  }
  return problem;
}

}  // namespace

std::optional<std::string> RenewDataFile(const DataFileLocation& location, const Renewal& renewal,
                                         const Writer& writer, Platform& platform) {
  const StatusWords status(platform.progress, "Validating the data file...");
  const CompactionTarget target(location, writer);
  const DataSource source{location.Path(), renewal.oldPassword, {}};
  const DataSource copy{target.Path(), renewal.newPassword, {}};
  SettleJournal(source);
  const std::optional<FileIdentity> sourceFile = IdentityOf(source.path);
  const Balances balances = VerifiedBalances(source, platform.clock);
  target.Clear(renewal.newPassword, platform);
  CompactDatabase(source, copy, platform.clock, platform.files, target.Mark());
  const std::optional<FileIdentity> copyFile = IdentityOf(copy.path);
  try {
    std::optional<std::string> problem =
        FinishCopy(source, copy, balances, renewal.onFailure, platform.clock);
    RequireStillThere(source.path, sourceFile);
    RequireStillThere(copy.path, copyFile);
    InstallDataFile(copy.path, source.path, platform.files);
    ClearMarkQuietly({source.path, renewal.newPassword, {}});
    return problem;
  } catch (...) {
    if (IdentityOf(copy.path) == copyFile) RemoveDataFileQuietly(copy.path, platform.files);
    throw;
  }
}

}  // namespace corvanta::inline datafile
