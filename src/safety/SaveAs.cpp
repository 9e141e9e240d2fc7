#include "safety/SaveAs.h"

#include "platform/Platform.h"
#include "platform/StatusWords.h"
#include "safety/FileStore.h"
#include "store/datafile/backup/DataFileDraft.h"
#include "store/datafile/opening/FileSteps.h"

namespace corvanta::inline safety {

void SaveDataFileAs(const BackedFile& file, const std::string& path, Platform& platform,
                    const Writer& writer) {
  const StatusWords status(platform.progress, "Saving the data file...");
  DataFileDraft draft({file.path, file.password, {}}, path, {}, writer, platform);
  CopyFileStore(FileStoreOf(file.path), FileStoreOf(path), OnOther::Refuse, platform.files);
  if (IdentityOf(path).has_value()) (void)SetAside(path, ".old", platform.files);
  draft.Install();
}

}  // namespace corvanta::inline safety
