#include "support/ScriptedDownload.h"

#include "platform/Files.h"
#include "platform/PlatformError.h"

namespace corvanta {

void ScriptedDownload::ToFile(const std::string& url, const std::string& path,
                              const GoesOn& goesOn) {
  requested_.push_back(url);
  if (!goesOn()) throw DownloadError(DownloadError::Cause::Stopped, url, "it was stopped");
  SystemFiles files;
  files.Remove(path);
  const auto found = answers_.find(url);
  if (found == answers_.end() && !others_) {
    throw DownloadError(DownloadError::Cause::NoAnswer, url, "no network");
  }
  files.WriteAtomically(path, found != answers_.end() ? found->second : *others_);
}

}  // namespace corvanta
