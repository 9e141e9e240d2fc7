#pragma once

#include <optional>
#include <string>

namespace corvanta {

struct Platform;

// The password that a key text stands for: the contents of a transfer file, of the key file of an
// installation or of a saved recovery key, or a recovery key as typed. nullopt when it holds none,
// or one with a slip in it.
[[nodiscard]] std::optional<std::string> PasswordFromKey(const std::string& text);

// True when the password opens the data file. Throws StoreError for any other refusal.
[[nodiscard]] bool OpensWith(const std::string& path, const std::string& password,
                             Platform& platform);

// The way into a data file of another installation.
class KeyRecovery {
 public:
  enum class Road { Key, OtherFile, Back };
  struct Answer {
    Road road = Road::Back;
    std::string password;  // opens the data file, when the road is Key
  };

  KeyRecovery(Platform& platform, std::string dataFilePath);
  // Asks until there is a key that fits or the person takes another road. Only reads the file.
  [[nodiscard]] Answer Ask();

 private:
  [[nodiscard]] std::optional<std::string> FromTransferFile();
  [[nodiscard]] std::optional<std::string> FromRecoveryKey();
  [[nodiscard]] bool Fits(const std::string& password);

  Platform& platform_;
  std::string path_;
};

}  // namespace corvanta
