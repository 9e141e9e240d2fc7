#include "safety/Transfer.h"

#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/sql/StoreError.h"

#include <filesystem>

namespace corvanta::inline safety {

bool IsFreeForTransfer(const std::string& path, const std::string& password) {
  if (!IdentityOf(path).has_value()) return true;
  constexpr std::size_t kLargest = 16U << 20U;
  try {
    const auto transfer = TransferFile::FromText(ReadFile(path, kLargest));
    return transfer.has_value() && transfer->password == password;
  } catch (const PlatformError&) {
    return false;
  }
}

void WriteTransfer(const std::string& path, const std::string& dataFile,
                   const std::string& password, FormerFile former, Platform& platform) {
  if (IsFromPassphrase(password)) {
    throw StoreError(
        StoreErrorCode::Sql,
        "The data file opens with its passphrase on every computer, and its key is kept "
        "nowhere. No transfer file was written: it needs none.",
        {}, path);
  }
  const auto folder = [](const std::string& file) {
    const std::filesystem::path above = std::filesystem::path(file).parent_path();
    return IdentityOf(above.empty() ? "." : above.string());
  };
  if (folder(path) == folder(dataFile)) {
    throw StoreError(StoreErrorCode::Sql,
                     "A transfer file holds the key of the data file and must not lie beside it. "
                     "Nothing was written. Choose a folder elsewhere.",
                     {}, path);
  }
  const bool isReplaced = former == FormerFile::Replace || IsFreeForTransfer(path, password);
  WriteTransferFile(path, password, platform.registry, platform.files,
                    isReplaced ? FormerFile::Replace : FormerFile::Refuse);
}

}  // namespace corvanta::inline safety
