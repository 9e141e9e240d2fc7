#include "store/datafile/opening/RecoverDataFile.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/datafile/opening/CompactionTarget.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"

namespace corvanta::inline datafile {
namespace {

bool IsWhole(const DataSource& copy, const Clock& clock) {
  try {
    return Connection::Open(copy, clock)->Check().empty();
  } catch (const StoreError& error) {
    if (error.Code() != StoreErrorCode::Damaged) throw;
    return false;
  }
}

}  // namespace

bool RecoverDataFile(const DataFileLocation& location, const std::string& password,
                     const Writer& writer, Platform& platform) {
  const DataSource copy{location.CompactionPath(), password, {}};
  if (FileExists(location.Path()) || !FileExists(copy.path)) return false;
  const CompactionTarget target(location, writer);
  if (Examine(copy.path, password, target.Mark(), platform) != Leftover::Own) return false;
  if (!IsWhole(copy, platform.clock)) return false;
  InstallDataFile(copy.path, location.Path(), platform.files);
  ClearMarkQuietly({location.Path(), password, {}});
  platform.prompts.Tell("Open Data File",
                        "The data file was missing. It was recovered from the copy that compacting "
                        "it had left.");
  return true;
}

}  // namespace corvanta::inline datafile
