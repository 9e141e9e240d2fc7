#include "store/datafile/opening/KeyRecovery.h"

#include "platform/Platform.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"

#include <sstream>

namespace corvanta::inline datafile {
std::optional<std::string> PasswordFromKey(const std::string& text) {
  if (const auto password = PasswordFromInstallationKey(text)) return password;
  if (const auto transfer = TransferFile::FromText(text)) return transfer->password;
  if (const auto password = PasswordFromRecoveryKey(text)) return password;
  // A saved key may stand among lines that explain it.
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (const auto password = PasswordFromRecoveryKey(line)) return password;
  }
  return std::nullopt;
}

bool OpensWith(const std::string& path, const std::string& password, Platform& platform) {
  try {
    return Connection::Open({path, password, {}}, platform.clock) != nullptr;
  } catch (const StoreError& error) {
    if (error.Code() == StoreErrorCode::OtherInstallation ||
        error.Code() == StoreErrorCode::WrongPassphrase) {
      return false;
    }
    throw;
  }
}

}  // namespace corvanta::inline datafile
