#include "support/ScriptedDownload.h"

#include "platform/Files.h"
#include "platform/PlatformError.h"

namespace corvanta {

void ScriptedDownload::ToFile(const std::string& url, const std::string& path) {
  requested_.push_back(url);
  SystemFiles files;
  files.Remove(path);
  const auto found = answers_.find(url);
  if (found == answers_.end() && !others_) {
    throw PlatformError("Cannot download " + url + ": no network.");
  }
  files.WriteAtomically(path, found != answers_.end() ? found->second : *others_);
}

}  // namespace corvanta
