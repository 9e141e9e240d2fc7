#include "platform/OwnFiles.h"

#include "platform/FileIdentity.h"
#include "platform/PlatformError.h"

#include <filesystem>
#include <utility>

namespace corvanta::inline platform {
namespace {

// However it is named: from another folder, through links.
std::string WholePath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  const std::filesystem::path whole = std::filesystem::weakly_canonical(absolute, error);
  return error ? path : whole.string();
}

}  // namespace

KeptFiles OwnFiles::Keep(std::vector<OwnFile> files) {
  for (OwnFile& file : files) file.path = WholePath(file.path);
  KeptFiles kept = std::make_shared<const std::vector<OwnFile>>(std::move(files));
  std::erase_if(kept_, [](const auto& each) { return each.expired(); });
  kept_.push_back(kept);
  return kept;
}

void OwnFiles::RequireOther(const std::string& path) const {
  const std::string whole = WholePath(path);
  const std::optional<FileIdentity> identity = IdentityOf(path);
  for (const auto& each : kept_) {
    const KeptFiles kept = each.lock();
    if (!kept) continue;
    for (const OwnFile& own : *kept) {
      const bool isThis = identity.has_value() && identity == IdentityOf(own.path);
      if (!isThis && own.path != whole) continue;
      throw FileRefused("This is " + own.what + ": " + path +
                        ". Nothing was written. Choose another name.");
    }
  }
}

}  // namespace corvanta::inline platform
