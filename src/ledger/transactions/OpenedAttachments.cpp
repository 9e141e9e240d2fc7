#include "ledger/transactions/OpenedAttachments.h"

#include "platform/Files.h"
#include "platform/PlatformError.h"

#include <algorithm>
#include <exception>
#include <filesystem>

namespace corvanta::inline ledger {

OpenedAttachments::~OpenedAttachments() {
  for (bool isLeft = true; isLeft;) {
    try {
      TakeBack();
      isLeft = false;
    } catch (const std::exception&) {
      // That one has been kept from being wiped, which is all that can be done here; then the rest.
    }
  }
}

std::string OpenedAttachments::PathToOpen(const AttachmentRecord& row) {
  if (ModeOf(row) != AttachmentMode::Inside) return files_.PathOf(row);
  return copies_.Put(row.file, files_.Content(row), false);
}

std::string OpenedAttachments::PathToEdit(const AttachmentRecord& row) {
  if (ModeOf(row) != AttachmentMode::Inside) return files_.PathOf(row);
  const auto known = std::ranges::find(edited_, row.attachmentId, &Edited::attachmentId);
  // A second copy would compete with the first.
  if (known != edited_.end() && FileExists(known->path)) return known->path;
  std::string bytes = files_.Content(row);
  const std::string path = copies_.Put(row.file, bytes, true);
  edited_.push_back({row.attachmentId, path, std::move(bytes)});
  return path;
}

std::vector<std::string> OpenedAttachments::TakeBack() {
  std::vector<std::string> taken;
  for (std::size_t place = 0; place < edited_.size(); ++place) {
    const std::string path = edited_[place].path;
    try {
      if (TakeBack(edited_[place]))
        taken.push_back(std::filesystem::path(path).filename().string());
    } catch (const std::exception& error) {
      copies_.Release(path);
      edited_.erase(edited_.begin() + static_cast<std::ptrdiff_t>(place));
      throw PlatformError(std::string(error.what()) +
                          " What was changed outside the data file is kept in " + path + ".");
    }
  }
  return taken;
}

bool OpenedAttachments::TakeBack(Edited& copy) {
  // A program that is just writing the file anew has it away for a moment.
  if (!FileExists(copy.path)) return false;
  std::string bytes = ReadFile(copy.path, kMaxInside);
  if (bytes == copy.bytes) return false;
  files_.Replace(copy.attachmentId, bytes);
  copy.bytes = std::move(bytes);
  return true;
}

}  // namespace corvanta::inline ledger
