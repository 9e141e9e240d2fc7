#pragma once

#include <string>
#include <string_view>

namespace corvanta {

// A folder of its own for one test, removed with all it holds at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }
  // The path of a file or folder in it, which need not exist.
  [[nodiscard]] std::string Path(std::string_view name) const;
  // Writes a file of that name and returns its path.
  std::string Write(std::string_view name, std::string_view content) const;

 private:
  std::string path_;
};

}  // namespace corvanta
