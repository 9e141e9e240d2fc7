#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

struct DataFileLocation;

// Asks a person for the passphrase of the data file of that path, again after a wrong one; nullopt
// when they turn back.
using PassphraseQuestion =
    std::function<std::optional<std::string>(const std::string& path, bool isAgain)>;

// The passwords of data files that want a passphrase. One that was typed serves as long as the
// program runs.
class FilePasswords {
 public:
  explicit FilePasswords(Platform& platform) : platform_(platform) {}

  // Without a question no passphrase is ever known.
  void SetQuestion(PassphraseQuestion ask) { ask_ = std::move(ask); }

  // The password that opens the file; nullopt where it is an installation's key that does. Asks
  // until it opens it. Throws StoreError(WrongPassphrase) when the person turns back, and what
  // opening throws.
  [[nodiscard]] std::optional<std::string> Of(const std::string& path);
  // The same of the data file or, without one, of the copy that is left of it.
  [[nodiscard]] std::optional<std::string> Of(const DataFileLocation& location);
  // The one that opens the file among those that are known; asks nobody.
  [[nodiscard]] std::optional<std::string> Known(const std::string& path);
  // A file has this password from now on.
  void Learn(const std::string& password) { known_.push_back(password); }

 private:
  [[nodiscard]] std::string Ask(const std::string& path);
  // Whether the password is that of the file, which may be damaged further in, or gone.
  [[nodiscard]] bool Fits(const std::string& path, const std::string& password);

  Platform& platform_;
  PassphraseQuestion ask_;
  std::vector<std::string> known_;
};

}  // namespace corvanta::inline datafile
