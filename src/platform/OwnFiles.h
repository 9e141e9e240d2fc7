#pragma once

#include <memory>
#include <string>
#include <vector>

namespace corvanta::inline platform {

// A file that the program itself lives on, there or not.
struct OwnFile {
  std::string path;
  std::string what;  // it is: "the data file in use"
};

// Keeps files the program's own as long as it stands.
using KeptFiles = std::shared_ptr<const std::vector<OwnFile>>;

// What nothing that a person has written may take the place of: an export, a report, a copy.
class OwnFiles {
 public:
  // From now on these files are the program's own.
  [[nodiscard]] KeptFiles Keep(std::vector<OwnFile> files);
  // Throws FileRefused where the path is one of them: by its name, also of a file that is not there
  // now, or by the file that it leads to.
  void RequireOther(const std::string& path) const;

 private:
  std::vector<std::weak_ptr<const std::vector<OwnFile>>> kept_;
};

}  // namespace corvanta::inline platform
