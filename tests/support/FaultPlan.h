#pragma once

#include <map>
#include <string>
#include <vector>

namespace corvanta {

enum class Fault {
  IoError,      // this one operation fails
  DiskFull,     // this and every later write fails for want of room
  Exit,         // the process ends before the operation
  TornWrite,    // half of a write is made, then the process ends
  DropUnsynced  // what was not synced is undone, as by a loss of power, then the process ends
};

[[nodiscard]] std::string FaultName(Fault fault);

// Counts the operations that change the disk and says which of them goes wrong. What a process
// that ends here returns is kFaultExit.
class FaultPlan {
 public:
  static constexpr int kFaultExit = 77;

  FaultPlan() = default;  // counts only
  // The first operation is number 1.
  FaultPlan(Fault fault, long at) : fault_(fault), at_(at) {}

  // Counts one operation. Ends the process where the plan says so. True when it has to fail.
  [[nodiscard]] bool Count(bool isWrite);
  // True when the write that is counted next is to be torn.
  [[nodiscard]] bool TearsNext() const { return fault_ == Fault::TornWrite && count_ + 1 == at_; }
  [[noreturn]] static void End();

  [[nodiscard]] long Counted() const { return count_; }
  [[nodiscard]] Fault Kind() const { return fault_; }

  // What a loss of power would undo, told by whoever changes the disk.
  void Created(const std::string& path);
  void Overwritten(const std::string& path, long long offset, std::string oldBytes,
                   long long oldSize);
  void Deleted(const std::string& path, std::string oldBytes);
  void Synced(const std::string& path);
  // What was deleted in the folder of the file stays so.
  void FolderSynced(const std::string& path);
  void Renamed(const std::string& from, const std::string& to);

 private:
  struct Change {
    long long offset = 0;
    long long oldSize = 0;
    std::string oldBytes;
  };
  struct File {
    bool isCreated = false;
    std::vector<Change> changes;
  };
  void UndoUnsynced();

  Fault fault_ = Fault::IoError;
  long at_ = 0;  // 0 for never
  long count_ = 0;
  std::map<std::string, File> unsynced_;
  std::map<std::string, std::string> deleted_;
};

}  // namespace corvanta
