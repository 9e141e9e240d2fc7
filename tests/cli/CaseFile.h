#pragma once

#include <map>
#include <optional>
#include <string>

namespace corvanta {

// A case of the command line, read from its file: the sections by name. README.md beside the cases
// describes the form.
class CaseFile {
 public:
  // Throws std::runtime_error, naming the file, when it cannot be read, has a section twice or one
  // of an unknown name, or lacks one of command, status, stdout and stderr.
  [[nodiscard]] static CaseFile Read(const std::string& path);

  // The section's text, empty for an optional one that is not there.
  [[nodiscard]] std::string Section(const std::string& name) const;

 private:
  std::map<std::string, std::string> sections_;
};

// The first difference between what a command wrote and what its case expects, for a person; empty
// when there is none. An expected line that begins with "~ " is a regular expression for the line.
[[nodiscard]] std::string Difference(const std::string& expected, const std::string& written);

}  // namespace corvanta
