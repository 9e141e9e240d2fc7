#include "store/datafile/FilePasswords.h"

#include "platform/Files.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/sql/FailureText.h"
#include "store/sql/StoreError.h"

#include <algorithm>

namespace corvanta::inline datafile {

std::optional<std::string> FilePasswords::Of(const DataFileLocation& location) {
  return Of(FileExists(location.Path()) ? location.Path() : location.CompactionPath());
}

std::optional<std::string> FilePasswords::Of(const std::string& path) {
  if (!WantsPassphrase(path)) return std::nullopt;
  if (auto known = Known(path)) return known;
  std::string password = Ask(path);
  Learn(password);
  return password;
}

// Copies of a file open with what opens the file.
std::optional<std::string> FilePasswords::Known(const std::string& path) {
  const auto found = std::ranges::find_if(
      known_, [&](const std::string& password) { return Fits(path, password); });
  return found == known_.end() ? std::nullopt : std::optional(*found);
}

std::string FilePasswords::Ask(const std::string& path) {
  bool isAgain = false;
  for (; ask_; isAgain = true) {
    const std::optional<std::string> typed = ask_(path, isAgain);
    if (!typed) break;
    const auto password = PasswordFromPassphrase(*typed, path);
    if (password && Fits(path, *password)) return *password;
  }
  const char* happened = isAgain ? "This passphrase does not open the data file."
                                 : "This data file opens with its passphrase, which was not given.";
  throw StoreError(StoreErrorCode::WrongPassphrase,
                   path + "\n" + FailureText(StoreErrorCode::WrongPassphrase, happened), {}, path);
}

bool FilePasswords::Fits(const std::string& path, const std::string& password) {
  if (!FileExists(path)) return false;
  try {
    return OpensWith(path, password, platform_);
  } catch (const StoreError& error) {
    // What is cut off was deciphered so far.
    if (error.Code() == StoreErrorCode::Damaged) return WantsPassphrase(path);
    if (error.Code() == StoreErrorCode::NotADataFile) return false;
    throw;
  }
}

}  // namespace corvanta::inline datafile
