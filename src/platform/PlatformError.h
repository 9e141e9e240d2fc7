#pragma once

#include <stdexcept>
#include <string>

namespace corvanta::inline platform {

// What the machine or the network refused: a file, a folder, a download. The text says, for a
// person, what happened, what is safe and what to do next, a sentence each.
class PlatformError : public std::runtime_error {
 public:
  explicit PlatformError(const std::string& message) : std::runtime_error(message) {}
};

// A file that the program does not write, by its own rules: the disk has nothing to do with it.
class FileRefused : public PlatformError {
 public:
  using PlatformError::PlatformError;
};

// "<what> <path>: <the system's own words for the error number>.", that nothing was changed, and
// what to do next. `code` is an errno.
[[nodiscard]] PlatformError SystemError(const std::string& what, const std::string& path, int code);

}  // namespace corvanta::inline platform
