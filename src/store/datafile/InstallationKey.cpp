#include "store/datafile/InstallationKey.h"

#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "platform/Machine.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Sodium.h"

#include <fcntl.h>
#include <sodium.h>
#include <sys/file.h>

#include <array>
#include <sstream>

namespace corvanta::inline datafile {
namespace {

constexpr std::size_t kSecretBytes = 32;
constexpr std::size_t kCheckBytes = 8;
constexpr std::string_view kHeading = "corvanta-installation-key 1";

using Secret = std::array<unsigned char, kSecretBytes>;

std::string HashHex(std::string_view text, std::size_t bytes) {
  Secret hash{};
  crypto_generichash(hash.data(), hash.size(), reinterpret_cast<const unsigned char*>(text.data()),
                     text.size(), nullptr, 0);
  return HexOf(hash.data(), bytes);
}

std::string CheckOf(const std::string& secret, const std::string& machine) {
  return HashHex("check " + secret + " " + machine, kCheckBytes);
}

// Heading, secret, machine value and a check over the two, one a line.
std::string NewKeyText(const MachineValue& machineValue) {
  Secret bytes{};
  randombytes_buf(bytes.data(), bytes.size());
  const std::string secret = HexOf(bytes.data(), bytes.size());
  sodium_memzero(bytes.data(), bytes.size());
  const std::string machine = std::to_string(machineValue.Read());
  return std::string(kHeading) + "\n" + secret + "\n" + machine + "\n" + CheckOf(secret, machine) +
         "\n";
}

// Held while the key is looked for and drawn: two programs that start for the first time at once
// must not each draw one.
class ProfileLock {
 public:
  explicit ProfileLock(const std::string& folder)
      : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (folder_.IsOpen()) ::flock(folder_.Get(), LOCK_EX);
  }

 private:
  FileHandle folder_;
};

}  // namespace

std::string InstallationKeyPath(const Platform& platform) {
  return platform.profileFolder + "/installation.key";
}

std::optional<std::string> PasswordFromInstallationKey(const std::string& text) {
  std::istringstream lines(text);
  std::string heading;
  std::string secret;
  std::string machine;
  std::string check;
  std::getline(lines, heading);
  std::getline(lines, secret);
  std::getline(lines, machine);
  std::getline(lines, check);
  if (heading != kHeading || check != CheckOf(secret, machine)) return std::nullopt;
  return HashHex("password " + secret + " " + machine, kSecretBytes);
}

std::optional<std::string> FindInstallationPassword(const Platform& platform) {
  StartSodium();
  const std::string path = InstallationKeyPath(platform);
  if (!FileExists(path)) return std::nullopt;
  if (auto password = PasswordFromInstallationKey(ReadFile(path))) return password;
  throw PlatformError("The key of this installation is damaged: " + path +
                      ". Put it back from a backup, or move it away and open your data file with "
                      "its recovery key.");
}

std::string InstallationPassword(Platform& platform) {
  if (auto password = FindInstallationPassword(platform)) return *password;
  platform.files.CreateFolder(platform.profileFolder);
  const ProfileLock lock(platform.profileFolder);
  if (auto password = FindInstallationPassword(platform)) return *password;
  platform.files.WriteAtomically(InstallationKeyPath(platform), NewKeyText(platform.machine));
  return FindInstallationPassword(platform).value();
}

}  // namespace corvanta::inline datafile
