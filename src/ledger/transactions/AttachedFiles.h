#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/reference/ReferenceRecords.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline ledger {

// Where an attached file is kept: where it was, as a copy in the folder beside the data file, or
// inside the data file.
enum class AttachmentMode { Path, Folder, Inside };

// The folder of copies, beside the data file.
inline constexpr const char* kFileStore = "FileStore";
// The largest files that are taken, in bytes. What is inside the data file is copied whenever that
// is, so there the limit is lower.
inline constexpr std::size_t kMaxInside = 32U << 20U;
inline constexpr std::size_t kMaxInFolder = 1U << 30U;

[[nodiscard]] AttachmentMode ModeOf(const AttachmentRecord& row);

// The files attached to transactions, wherever they are kept. A file is stored before the row that
// names it and never removed with it: a row that comes back by undoing finds its file again. Copies
// in the folder that no row names any longer are Unused(), for the person to clear away; contents
// inside the data file go with the last row that names them, and come back with it.
//
// Operations throw StoreError; those that read or write files PlatformError, too, and have changed
// nothing then.
class AttachedFiles {
 public:
  explicit AttachedFiles(LedgerCore& core) : core_(core) {}

  // In the order in which they were attached.
  [[nodiscard]] std::vector<AttachmentRecord> Of(std::int64_t transactionId);
  // nullopt when there is none of that key.
  [[nodiscard]] std::optional<AttachmentRecord> Find(std::int64_t attachmentId);
  // Those of the whole data file; those kept in one way.
  [[nodiscard]] std::vector<AttachmentRecord> All();
  [[nodiscard]] std::vector<AttachmentRecord> All(AttachmentMode mode);

  // "<folder of the data file>/FileStore"; it need not be there.
  [[nodiscard]] std::string Folder() const;
  // Where the file lies; empty for one inside the data file.
  [[nodiscard]] std::string PathOf(const AttachmentRecord& row) const;
  // Whether the file is where the row says.
  [[nodiscard]] bool IsThere(const AttachmentRecord& row);
  // How many of the data file's are not.
  [[nodiscard]] std::size_t CountMissing();
  // In bytes; nullopt for a file that is not there.
  [[nodiscard]] std::optional<std::size_t> SizeOf(const AttachmentRecord& row);
  // The bytes of the file.
  [[nodiscard]] std::string Content(const AttachmentRecord& row);

  // Attaches the file as one step that can be undone; returns the key of its row. Refused, as a
  // PlatformError, for what is no ordinary file and for one that is too large.
  std::int64_t Attach(std::int64_t transactionId, const std::string& path, AttachmentMode mode);
  // The row as it is, whose file lies where it says; returns its key.
  std::int64_t AddRow(const AttachmentRecord& record);
  // Puts other bytes in the place of a file inside the data file. Rows that were copied from this
  // one keep the former.
  void Replace(std::int64_t attachmentId, std::string_view bytes);
  // The rows of tblAttachments that the condition is about, with the contents that only they name.
  // No step of its own.
  void DeleteRows(const std::string& condition);

  // The names of the files in the folder that no row of this data file names.
  [[nodiscard]] std::vector<std::string> Unused();

 private:
  [[nodiscard]] std::vector<AttachmentRecord> Read(const std::string& condition);
  [[nodiscard]] std::int64_t ContentKey(const AttachmentRecord& row) const;
  [[nodiscard]] std::string CopyToFolder(const std::string& path);
  [[nodiscard]] std::string StoreInside(std::string_view bytes);

  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
