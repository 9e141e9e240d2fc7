#include "safety/FileStore.h"

#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "store/datafile/opening/FileSteps.h"

#include <filesystem>

namespace corvanta::inline safety {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargest = std::size_t{4} << 30U;

bool LooksSame(const fs::path& from, const fs::path& to) {
  std::error_code error;
  const bool isSameSize = fs::file_size(from, error) == fs::file_size(to, error) && !error;
  return isSameSize && fs::last_write_time(from, error) <= fs::last_write_time(to, error) && !error;
}

// False where it needs no copy.
bool CopyOne(const fs::path& from, const fs::path& to, OnOther onOther, Files& files) {
  const bool isThere = FileExists(to.string());
  if (isThere && onOther == OnOther::KeepOld && LooksSame(from, to)) return false;
  const std::string content = ReadFile(from.string(), kLargest);
  if (isThere && content == ReadFile(to.string(), kLargest)) return false;
  if (isThere && onOther == OnOther::Refuse) {
    throw PlatformError("There is another file of that name already: " + to.string() +
                        ". It was left as it is. Choose a folder without attached files.");
  }
  files.Own().RequireOther(to.string());
  if (isThere) (void)SetAside(to.string(), ".old", files);
  files.Save(to.string(), content, FormerFile::Refuse);
  if (ReadFile(to.string(), kLargest) == content) return true;
  throw PlatformError("The copy of the attached file " + from.string() +
                      " is not as it was written. Check the disk and try again.");
}

}  // namespace

std::string FileStoreOf(const std::string& dataFile) {
  return (fs::path(dataFile).parent_path() / "FileStore").string();
}

std::size_t CopyFileStore(const std::string& from, const std::string& to, OnOther onOther,
                          Files& files) {
  std::error_code error;
  if (!FolderExists(from) || fs::equivalent(from, to, error)) return 0;
  std::size_t copied = 0;
  error.clear();
  for (fs::recursive_directory_iterator entry(from, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!entry->is_regular_file(error)) continue;
    const fs::path target = fs::path(to) / entry->path().lexically_relative(from);
    files.CreateFolder(target.parent_path().string());
    if (CopyOne(entry->path(), target, onOther, files)) ++copied;
  }
  if (error) {
    throw PlatformError("The folder of attached files " + from + " cannot be read (" +
                        error.message() + "). Check its permissions and try again.");
  }
  return copied;
}

std::string RestoreFileStore(const std::string& backup, const std::string& dataFile, Files& files) {
  try {
    CopyFileStore(FileStoreOf(backup), FileStoreOf(dataFile), OnOther::Refuse, files);
    return {};
  } catch (const PlatformError& error) {
    return std::string("Its attached files are not all there: ") + error.what();
  }
}

}  // namespace corvanta::inline safety
