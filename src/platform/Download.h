#pragma once

#include "platform/PlatformError.h"

#include <functional>
#include <string>

namespace corvanta::inline platform {

// Why nothing was fetched.
class DownloadError : public PlatformError {
 public:
  enum class Cause {
    NoAnswer,  // nobody answered, or not in time: others who ask there would wait as long
    Refused,   // what came is no answer: an error, cut off, too large
    Stopped    // by the person
  };

  // `reason` says in a few words what happened, without the address.
  DownloadError(Cause cause, const std::string& url, const std::string& reason);

  [[nodiscard]] Cause Why() const { return cause_; }
  [[nodiscard]] const std::string& Reason() const { return reason_; }

 private:
  Cause cause_;
  std::string reason_;
};

// Fetches an address into a file.
class Download {
 public:
  // Asked several times a second; false ends the download.
  using GoesOn = std::function<bool()>;

  virtual ~Download() = default;
  // Writes the whole answer to `path` (replacing it) and returns; redirects are followed. Throws
  // DownloadError, leaving no file, when the answer is an error, is cut off, is larger than the
  // limit, does not arrive within a few seconds, or is not waited for any longer; PlatformError
  // when it cannot be written.
  virtual void ToFile(const std::string& url, const std::string& path, const GoesOn& goesOn) = 0;
};

// Over libcurl; http and https only.
class CurlDownload : public Download {
 public:
  explicit CurlDownload(long timeoutSeconds = 8) : timeoutSeconds_(timeoutSeconds) {}
  void ToFile(const std::string& url, const std::string& path, const GoesOn& goesOn) override;

 private:
  long timeoutSeconds_;
};

}  // namespace corvanta::inline platform
