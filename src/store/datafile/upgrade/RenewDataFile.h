#pragma once

#include "store/datafile/DataFileLocation.h"
#include "store/datafile/WriterLock.h"

#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

enum class UpgradeFailure {
  Keep,   // the compacted file stays in the old layout, and what went wrong is returned
  Refuse  // nothing is changed
};

struct Renewal {
  std::string oldPassword;  // with which the data file is protected
  std::string newPassword;  // with which it is to be
  UpgradeFailure onFailure = UpgradeFailure::Keep;
};

// Compacts the data file, protects it with the new password, upgrades its schema, cleans it up and
// checks it. All of this happens to the compacted copy; it takes the data file's place in one step
// after it was opened again and every account's balance compared, so that until then, and when
// this throws, the data file is as it was. The data file must not be open, and `writer` must hold
// its lock. Returns what kept the upgrade from being made. Throws StoreError and PlatformError.
std::optional<std::string> RenewDataFile(const DataFileLocation& location, const Renewal& renewal,
                                         const Writer& writer, Platform& platform);

}  // namespace corvanta::inline datafile
