#pragma once

#include "ledger/Warning.h"
#include "ledger/transactions/AttachedFiles.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline notes {

// The rules behind the attachments of one transaction: one file by its path or in the folder beside
// the data file, and any number inside the data file. Operations throw StoreError and
// PlatformError; what a rule refuses has been told.
class AttachmentEditor {
 public:
  AttachmentEditor(clsCorvanta& ledger, Platform& platform, std::int64_t transactionId)
      : ledger_(ledger), platform_(platform), transactionId_(transactionId) {}

  [[nodiscard]] std::vector<AttachmentRecord> Attachments();
  // How a new file is kept, and what keeps it so from now on.
  [[nodiscard]] AttachmentMode Keeping() const;
  void Keep(AttachmentMode mode);

  // Why that file cannot be attached and kept so; nullopt when it can.
  [[nodiscard]] std::optional<Warning> CheckAdd(const std::string& path, AttachmentMode mode);
  // Asks for a file and attaches it. True when it was.
  bool Add();
  bool AddFile(const std::string& path);
  // Asks, then takes the attachment from the transaction. True when it is gone.
  bool Remove(const AttachmentRecord& row);
  // Has the system open the file, or edit it.
  void Open(const AttachmentRecord& row);
  void Edit(const AttachmentRecord& row);
  // Asks where, and writes the file there. True when it was.
  bool SaveAs(const AttachmentRecord& row);
  // What other programs have changed in files inside the data file is taken back. True when
  // something was.
  bool TakeBack();

 private:
  [[nodiscard]] bool IsClosed();
  // True, and told, when the transaction is not to be changed.
  bool RefuseClosed();
  void HandOver(const AttachmentRecord& row, bool isToBeChanged);

  clsCorvanta& ledger_;
  Platform& platform_;
  std::int64_t transactionId_;
};

// How it is said where a file is kept: "in the data file".
[[nodiscard]] const char* KeptText(AttachmentMode mode);
// Tells where the files are that other programs were changing when this one ended without taking
// them back. Throws PlatformError.
void TellLeftovers(clsCorvanta& ledger, Platform& platform);

}  // namespace corvanta::inline notes
