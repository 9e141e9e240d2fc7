#pragma once

#include "ledger/transactions/AttachedFiles.h"
#include "platform/PrivateCopies.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

// Attached files that other programs work with for as long as the data file is open. Of those
// inside the data file they get private copies, which are wiped afterwards; what was changed in a
// copy that was opened for editing is taken back before.
//
// Operations throw StoreError and PlatformError.
class OpenedAttachments {
 public:
  // `folder` is where the private copies are.
  OpenedAttachments(LedgerCore& core, std::string folder)
      : files_(core), copies_(std::move(folder)) {}
  ~OpenedAttachments();
  OpenedAttachments(const OpenedAttachments&) = delete;
  OpenedAttachments& operator=(const OpenedAttachments&) = delete;

  // A path at which another program finds the file: the file itself, or a copy of it.
  [[nodiscard]] std::string PathToOpen(const AttachmentRecord& row);
  // The same to be written to.
  [[nodiscard]] std::string PathToEdit(const AttachmentRecord& row);
  // Takes back what was changed in the copies, a step for each; returns the files' names. A copy
  // that cannot be taken back stays where it is, also beyond the end of the program, and is not
  // tried again: what is thrown then, a PlatformError, says where it is.
  std::vector<std::string> TakeBack();
  // What a program that was killed has left changed, by its path; each is returned once.
  std::vector<std::string> Leftovers() { return copies_.Sweep(); }
  // The copies stay until the program is started again: the other program may not have read them.
  void LeaveAll() { copies_.LeaveAll(); }

 private:
  struct Edited {
    std::int64_t attachmentId = 0;
    std::string path;
    std::string bytes;  // as they are in the data file
  };
  // False when nothing was changed in the copy.
  bool TakeBack(Edited& copy);

  AttachedFiles files_;
  PrivateCopies copies_;
  std::vector<Edited> edited_;
};

}  // namespace corvanta::inline ledger
