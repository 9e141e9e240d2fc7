// The folder in which copies of attached files are kept, and its way into and out of backups.
#pragma once

#include <cstddef>
#include <string>

namespace corvanta::inline platform {
class Files;
}

namespace corvanta::inline safety {

// The folder that belongs to a data file, or to a backup of it: "FileStore" beside it.
[[nodiscard]] std::string FileStoreOf(const std::string& dataFile);

// What becomes of a file that is there already with another content.
enum class OnOther { KeepOld, Refuse };

// Copies the files of a folder and of those in it into another, each whole or not at all, and reads
// each one back. A file of the same size that is no older is taken for the same. A file that is
// there with another content is refused (Refuse) or gives way and is kept under another name
// (KeepOld). Returns how many were copied; 0 where there is no such folder. Throws PlatformError.
std::size_t CopyFileStore(const std::string& from, const std::string& to, OnOther onOther,
                          Files& files);

// After a restore: brings the attached files that lie beside the backup and are missing beside the
// data file. Returns what is to be told of it; empty where all are there.
[[nodiscard]] std::string RestoreFileStore(const std::string& backup, const std::string& dataFile,
                                           Files& files);

}  // namespace corvanta::inline safety
