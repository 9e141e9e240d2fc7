#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

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

  // The password that opens the data file, or the copy that is left of it; nullopt where it is an
  // installation's key that does. Asks until it opens it. Throws StoreError(WrongPassphrase) when
  // the person turns back, and what opening throws.
  [[nodiscard]] std::optional<std::string> Of(const DataFileLocation& location);
  // The data file of that path has this password from now on.
  void Learn(const std::string& path, const std::string& password) { known_[path] = password; }

 private:
  [[nodiscard]] std::string Ask(const std::string& path);

  Platform& platform_;
  PassphraseQuestion ask_;
  std::map<std::string, std::string> known_;  // by path
};

}  // namespace corvanta::inline datafile
