#include "store/opening/RecoverDataFile.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "store/Connection.h"
#include "store/StoreError.h"
#include "store/opening/FileSteps.h"

namespace corvanta {
namespace {

enum class CopyState { Whole, Empty, Unusable };

bool HasRows(Connection& connection) {
  for (const std::string& table : connection.TableNames()) {
    if (connection.QueryValue("SELECT COUNT(*) FROM " + table).Int() > 0) return true;
  }
  return false;
}

bool SaysUnusable(const StoreError& error) {
  return error.Code() == StoreErrorCode::NotADataFile ||
         error.Code() == StoreErrorCode::OtherInstallation ||
         error.Code() == StoreErrorCode::Damaged;
}

CopyState Examine(const DataSource& copy, const Clock& clock) {
  try {
    const std::unique_ptr<Connection> connection = Connection::Open(copy, clock);
    if (!connection->Check().empty()) return CopyState::Unusable;
    return HasRows(*connection) ? CopyState::Whole : CopyState::Empty;
  } catch (const StoreError& error) {
    if (!SaysUnusable(error)) throw;
    return CopyState::Unusable;
  }
}

}  // namespace

bool RecoverDataFile(const DataFileLocation& location, const std::string& password,
                     Platform& platform) {
  const DataSource copy{location.CompactionPath(), password, {}};
  if (FileExists(location.Path()) || !FileExists(copy.path)) return false;
  switch (Examine(copy, platform.clock)) {
    case CopyState::Whole:
      InstallDataFile(copy.path, location.Path(), platform.files);
      return true;
    case CopyState::Empty:
      RemoveDataFile(copy.path, platform.files);
      return false;
    case CopyState::Unusable:
      // Beside a draft it is the rest of a creation that was broken off.
      if (FileExists(location.DraftPath())) {
        RemoveDataFile(copy.path, platform.files);
      } else {
        SetAside(copy.path, ".old", platform.files);
      }
      return false;
  }
  return false;
}

}  // namespace corvanta
