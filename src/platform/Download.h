#pragma once

#include <string>

namespace corvanta::inline platform {

// Fetches an address into a file.
class Download {
 public:
  virtual ~Download() = default;
  // Writes the whole answer to `path` (replacing it) and returns; redirects are followed. Throws
  // PlatformError, leaving no file, when the answer is an error, is cut off, is larger than the
  // limit, or does not arrive within a few seconds.
  virtual void ToFile(const std::string& url, const std::string& path) = 0;
};

// Over libcurl; http and https only.
class CurlDownload : public Download {
 public:
  explicit CurlDownload(long timeoutSeconds = 8) : timeoutSeconds_(timeoutSeconds) {}
  void ToFile(const std::string& url, const std::string& path) override;

 private:
  long timeoutSeconds_;
};

}  // namespace corvanta::inline platform
