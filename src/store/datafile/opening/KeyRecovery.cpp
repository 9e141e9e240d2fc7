#include "store/datafile/opening/KeyRecovery.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Prompts.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"

#include <filesystem>
#include <sstream>
#include <utility>

namespace corvanta {
namespace {

constexpr const char* kTitle = "Key of the data file";
constexpr std::size_t kKeyFileLimit = 16U << 20U;

}  // namespace

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
    if (error.Code() == StoreErrorCode::OtherInstallation) return false;
    throw;
  }
}

KeyRecovery::KeyRecovery(Platform& platform, std::string dataFilePath)
    : platform_(platform), path_(std::move(dataFilePath)) {}

KeyRecovery::Answer KeyRecovery::Ask() {
  enum : std::size_t { kTransfer, kTyped, kOther };
  for (;;) {
    const std::optional<std::size_t> chosen = platform_.prompts.Choose(
        kTitle,
        "The data file " + path_ +
            " is protected with the key of another installation. To open it here you need the "
            "transfer file or the recovery key that was saved there.",
        {"Use its transfer file", "Type its recovery key", "Choose another data file"});
    if (chosen == kOther) return {Road::OtherFile, {}};
    if (chosen != kTransfer && chosen != kTyped) return {Road::Back, {}};
    const std::optional<std::string> password =
        chosen == kTransfer ? FromTransferFile() : FromRecoveryKey();
    if (password.has_value() && Fits(*password)) return {Road::Key, *password};
  }
}

std::optional<std::string> KeyRecovery::FromTransferFile() {
  const std::optional<std::string> path =
      platform_.prompts.OpenFile({"Select Transfer File", "Transfer Files", "*.tfr", "tfr",
                                  std::filesystem::path(path_).parent_path().string()});
  if (!path.has_value()) return std::nullopt;
  try {
    const std::optional<std::string> password = PasswordFromKey(ReadFile(*path, kKeyFileLimit));
    if (password.has_value()) return password;
    platform_.prompts.Tell(kTitle, "There is no key in " + *path + ".", Icon::Warning);
  } catch (const PlatformError& error) {
    platform_.prompts.Tell(kTitle, error.what(), Icon::Warning);
  }
  return std::nullopt;
}

std::optional<std::string> KeyRecovery::FromRecoveryKey() {
  const std::optional<std::string> typed =
      platform_.prompts.AskText(kTitle, "The recovery key of the data file:");
  if (!typed.has_value()) return std::nullopt;
  const std::optional<std::string> password = PasswordFromRecoveryKey(*typed);
  if (!password.has_value()) {
    platform_.prompts.Tell(kTitle,
                           "This is not a recovery key. Compare it with what you wrote down; a "
                           "single wrong or missing character is enough.",
                           Icon::Warning);
  }
  return password;
}

bool KeyRecovery::Fits(const std::string& password) {
  if (OpensWith(path_, password, platform_)) return true;
  platform_.prompts.Tell(kTitle, "This key does not open the data file " + path_ + ".",
                         Icon::Warning);
  return false;
}

}  // namespace corvanta
