// The file that brings a data file's password and the settings from another installation.
#pragma once

#include "platform/Files.h"
#include "platform/RegistryText.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
class Registry;
}  // namespace corvanta::inline platform

namespace corvanta::inline datafile {

// A transfer file as read: a first line with the enciphered password, then the settings in the
// registry's text form with SETTINGS, REPORTS, STOCKS and CURRENCY for the program's four keys:
//
//   [SETTINGS]
//   Height=600
//   [REPORTS\By month]
//   Type=3
struct TransferFile {
  std::string password;
  RegistryText settings;

  // nullopt when the text does not begin with a password. What else makes no sense is skipped.
  [[nodiscard]] static std::optional<TransferFile> FromText(std::string_view text);

  // Writes the settings into the user's hive, all of them or none. The other machine's DBPath is
  // left out: it means nothing here. Throws PlatformError.
  void WriteSettings(Registry& registry) const;
};

// Writes a transfer file with this password and the user's present settings. Throws PlatformError.
void WriteTransferFile(const std::string& path, const std::string& password,
                       const Registry& registry, Files& files,
                       FormerFile former = FormerFile::Replace);

}  // namespace corvanta::inline datafile
