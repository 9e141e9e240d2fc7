#include "store/opening/FileSteps.h"

#include "platform/Files.h"
#include "store/StoreError.h"

#include <exception>

namespace corvanta {
namespace {

std::string JournalOf(const std::string& path) {
  return path + "-journal";
}

}  // namespace

void RemoveDataFile(const std::string& path, Files& files) {
  // The file first: a journal without its file means nothing, a file without its journal may be
  // half changed.
  files.Remove(path);
  files.Remove(JournalOf(path));
}

void RemoveDataFileQuietly(const std::string& path, Files& files) noexcept {
  try {
    RemoveDataFile(path, files);
  } catch (const std::exception&) {
    // What is left is removed before the next use of the name.
  }
}

void InstallDataFile(const std::string& from, const std::string& to, Files& files) {
  const std::string journal = JournalOf(to);
  if (FileExists(journal)) {
    if (FileExists(to)) {
      throw StoreError(StoreErrorCode::Io,
                       "The data file is still being changed by another program: " + journal +
                           " stands beside it. Close that program and try again.",
                       {}, to);
    }
    files.Remove(journal);
  }
  files.Replace(from, to);
}

std::string SetAside(const std::string& path, const std::string& ending, Files& files) {
  std::string target = path + ending;
  for (int number = 2; FileExists(target); ++number) {
    target = path + ending + std::to_string(number);
  }
  files.Replace(path, target);
  return target;
}

}  // namespace corvanta
