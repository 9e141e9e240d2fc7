// Files and folders, with the promises that a data file needs.
#pragma once

#include "platform/OwnFiles.h"

#include <string>
#include <string_view>

namespace corvanta::inline platform {

// What becomes of a file that has the name already.
enum class FormerFile { Replace, Refuse };

// Replacing, removing and creating files so that a loss of power leaves the old or the new state.
// An interface, so that a test can stop the program between any two of its steps.
class Files {
 public:
  virtual ~Files() = default;

  // Renames `from` over `to` in one step: both the file and the folder are synced, so that the
  // new name is on disk when this returns. Throws PlatformError.
  virtual void Replace(const std::string& from, const std::string& to) = 0;
  // Removes the file; one that is not there is no error. Throws PlatformError otherwise.
  virtual void Remove(const std::string& path) = 0;
  // Creates the folder and those above it (owner-only); one that exists is no error.
  virtual void CreateFolder(const std::string& path) = 0;
  // Writes text (or any bytes) into a new file of an unpredictable name beside `path` (owner-only),
  // syncs it and renames it over `path`; a failure leaves what was there. A link of the user's own
  // stays, and what it points to is replaced; a link of somebody else's, and what is no ordinary
  // file, is refused. Throws PlatformError.
  virtual void WriteAtomically(const std::string& path, std::string_view text) = 0;
  // The same where nothing of that name is. Throws PlatformError, and leaves it, where something
  // is.
  virtual void WriteNew(const std::string& path, std::string_view text) = 0;

  // Writes, in one of these two ways, a file whose name a person chose. Throws FileRefused,
  // whatever was agreed to, where the name leads to one of the program's own files.
  void Save(const std::string& path, std::string_view text, FormerFile former);
  // Those files. Whoever makes a file in another way than by Save asks them before.
  [[nodiscard]] OwnFiles& Own() { return own_; }

 private:
  OwnFiles own_;
};

class SystemFiles : public Files {
 public:
  void Replace(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  void CreateFolder(const std::string& path) override;
  void WriteAtomically(const std::string& path, std::string_view text) override;
  void WriteNew(const std::string& path, std::string_view text) override;
};

[[nodiscard]] bool FileExists(const std::string& path);
[[nodiscard]] bool FolderExists(const std::string& path);
// The bytes of an ordinary file. Throws PlatformError for any other one, and over `limit` bytes.
[[nodiscard]] std::string ReadFile(const std::string& path, std::size_t limit = 64U << 20U);
// True when the owner's mark or the file system refuses writing (also for a privileged user).
[[nodiscard]] bool IsReadOnly(const std::string& path);

}  // namespace corvanta::inline platform
