#include "support/TemporaryFolder.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace corvanta {

TemporaryFolder::TemporaryFolder() {
  path_ = (std::filesystem::temp_directory_path() / "corvanta-test-XXXXXX").string();
  if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
  namespace fs = std::filesystem;
  std::error_code ignored;
  // A test may have taken the owner's right to write away.
  for (const auto& entry : fs::recursive_directory_iterator(path_, ignored)) {
    if (entry.is_directory(ignored)) {
      fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::Path(std::string_view name) const {
  return (std::filesystem::path(path_) / name).string();
}

std::string TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  const std::string path = Path(name);
  std::ofstream file(path, std::ios::binary);
  file << content;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
  return path;
}

}  // namespace corvanta
