#pragma once

#include "store/DataFileLocation.h"

#include <optional>
#include <string>

namespace corvanta {

struct Platform;

enum class UpgradeFailure {
  Keep,   // the compacted file stays in the old layout, and what went wrong is returned
  Refuse  // nothing is changed
};

// Compacts the data file, protects it with `newPassword`, upgrades its schema, cleans it up and
// checks it. All of this happens to the compacted copy; it takes the data file's place in one step
// after it was opened again and every account's balance compared, so that until then, and when
// this throws, the data file is as it was. The data file must not be open. Returns what kept the
// upgrade from being made. Throws StoreError and PlatformError.
std::optional<std::string> RenewDataFile(const DataFileLocation& location,
                                         const std::string& oldPassword,
                                         const std::string& newPassword, UpgradeFailure onFailure,
                                         Platform& platform);

}  // namespace corvanta
