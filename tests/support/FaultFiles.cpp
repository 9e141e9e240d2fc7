#include "support/FaultFiles.h"

#include "platform/PlatformError.h"

namespace corvanta {

void FaultFiles::Count(const std::string& path) {
  if (plan_.Count(true)) throw PlatformError("Cannot write " + path + ".");
}

void FaultFiles::Replace(const std::string& from, const std::string& to) {
  Count(to);
  files_.Replace(from, to);
  plan_.Renamed(from, to);
  plan_.Synced(to);
  plan_.FolderSynced(to);
}

void FaultFiles::Remove(const std::string& path) {
  Count(path);
  files_.Remove(path);
  plan_.Synced(path);
  plan_.FolderSynced(path);
}

void FaultFiles::CreateFolder(const std::string& path) {
  Count(path);
  files_.CreateFolder(path);
}

void FaultFiles::WriteAtomically(const std::string& path, std::string_view text) {
  Count(path);
  files_.WriteAtomically(path, text);
}

void FaultFiles::WriteNew(const std::string& path, std::string_view text) {
  Count(path);
  files_.WriteNew(path, text);
}

}  // namespace corvanta
