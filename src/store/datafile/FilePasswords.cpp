#include "store/datafile/FilePasswords.h"

#include "platform/Files.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/sql/FailureText.h"
#include "store/sql/StoreError.h"

namespace corvanta::inline datafile {

std::optional<std::string> FilePasswords::Of(const DataFileLocation& location) {
  const std::string path =
      FileExists(location.Path()) ? location.Path() : location.CompactionPath();
  if (!WantsPassphrase(path)) return std::nullopt;
  const auto known = known_.find(location.Path());
  if (known != known_.end() && OpensWith(path, known->second, platform_)) return known->second;
  std::string password = Ask(path);
  Learn(location.Path(), password);
  return password;
}

std::string FilePasswords::Ask(const std::string& path) {
  bool isAgain = false;
  for (; ask_; isAgain = true) {
    const std::optional<std::string> typed = ask_(path, isAgain);
    if (!typed) break;
    const auto password = PasswordFromPassphrase(*typed, path);
    if (password && OpensWith(path, *password, platform_)) return *password;
  }
  const char* happened = isAgain ? "This passphrase does not open the data file."
                                 : "This data file opens with its passphrase, which was not given.";
  throw StoreError(StoreErrorCode::WrongPassphrase,
                   path + "\n" + FailureText(StoreErrorCode::WrongPassphrase, happened), {}, path);
}

}  // namespace corvanta::inline datafile
