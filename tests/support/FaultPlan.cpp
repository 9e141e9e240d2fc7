#include "support/FaultPlan.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace corvanta {

bool FaultPlan::Count(bool isWrite) {
  ++count_;
  if (at_ == 0 || count_ < at_) return false;
  if (fault_ == Fault::DiskFull) return isWrite;
  if (count_ != at_) return false;
  if (fault_ == Fault::IoError) return true;
  if (fault_ == Fault::DropUnsynced) UndoUnsynced();
  End();
}

void FaultPlan::End() {
  ::_exit(kFaultExit);
}

void FaultPlan::Created(const std::string& path) {
  unsynced_[path].isCreated = true;
  deleted_.erase(path);
}

void FaultPlan::Overwritten(const std::string& path, long long offset, std::string oldBytes,
                            long long oldSize) {
  unsynced_[path].changes.push_back({offset, oldSize, std::move(oldBytes)});
}

void FaultPlan::Deleted(const std::string& path, std::string oldBytes) {
  unsynced_.erase(path);
  deleted_[path] = std::move(oldBytes);
}

void FaultPlan::Synced(const std::string& path) {
  unsynced_.erase(path);
}

void FaultPlan::FolderSynced(const std::string& path) {
  const auto folder = std::filesystem::path(path).parent_path();
  std::erase_if(deleted_, [&](const auto& deleted) {
    return std::filesystem::path(deleted.first).parent_path() == folder;
  });
}

void FaultPlan::Renamed(const std::string& from, const std::string& to) {
  unsynced_.erase(to);
  if (auto moved = unsynced_.extract(from)) {
    moved.key() = to;
    unsynced_.insert(std::move(moved));
  }
}

void FaultPlan::UndoUnsynced() {
  for (const auto& [path, file] : unsynced_) {
    if (file.isCreated) {
      ::unlink(path.c_str());
      continue;
    }
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    for (auto change = file.changes.rbegin(); change != file.changes.rend(); ++change) {
      if (::pwrite(descriptor, change->oldBytes.data(), change->oldBytes.size(), change->offset) <
              0 ||
          ::ftruncate(descriptor, change->oldSize) != 0) {
        ::_exit(1);
      }
    }
    ::close(descriptor);
  }
  for (const auto& [path, bytes] : deleted_) std::ofstream(path, std::ios::binary) << bytes;
}

std::string FaultName(Fault fault) {
  constexpr const char* kNames[] = {"IoError", "DiskFull", "Exit", "TornWrite", "DropUnsynced"};
  return kNames[static_cast<int>(fault)];
}

}  // namespace corvanta
