#include "store/datafile/opening/DraftFile.h"

#include "platform/Platform.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/opening/CompactionTarget.h"
#include "store/datafile/opening/FileSteps.h"

namespace corvanta::inline datafile {

std::string FreeDraftPath(const DataFileLocation& location, const CopyMark& mark,
                          const std::string& password, Platform& platform) {
  const std::string first = location.DraftPath();
  std::string path = first;
  for (int number = 2;; ++number) {
    const bool isForeign = Examine(path, password, mark, platform) == Leftover::Foreign;
    if (!isForeign || IsMarkedAlike(path, password, mark)) break;
    path = first + std::to_string(number);
  }
  RemoveDataFile(path, platform.files);
  return path;
}

}  // namespace corvanta::inline datafile
