#include "platform/PlatformError.h"
#include "store/datafile/InstallationKey.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>

namespace corvanta {
namespace {

std::string KeyPath(TestPlatform& platform) {
  return platform.folder.Path("profile") + "/installation.key";
}

TEST(Key, PasswordIsStableOwnerOnlyAndNotAnotherInstallations) {
  TestPlatform platform;
  const std::string password = InstallationPassword(platform.Get());
  EXPECT_EQ(password.size(), 64U);
  EXPECT_EQ(password.find_first_not_of("0123456789abcdef"), std::string::npos);
  // The machine's value is the one of the first start: new hardware locks nobody out.
  platform.machine.Set(42);
  EXPECT_EQ(InstallationPassword(platform.Get()), password);
  struct stat status {};
  ASSERT_EQ(::stat(KeyPath(platform).c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
  EXPECT_EQ(ReadFile(KeyPath(platform)).find(password), std::string::npos);

  TestPlatform other;
  EXPECT_NE(InstallationPassword(other.Get()), password);
}

TEST(Key, DamagedKeyFileIsToldAndNeverReplaced) {
  TestPlatform platform;
  (void)InstallationPassword(platform.Get());
  std::string text = ReadFile(KeyPath(platform));
  const std::size_t digit = text.find('\n') + 5;
  text[digit] = text[digit] == '0' ? '1' : '0';
  for (const std::string& damaged : {text, text.substr(0, 40), std::string()}) {
    platform.folder.Write("profile/installation.key", damaged);
    EXPECT_THROW((void)InstallationPassword(platform.Get()), PlatformError);
    EXPECT_EQ(ReadFile(KeyPath(platform)), damaged);
  }
}

TEST(RecoveryKey, ReadsBackHoweverItWasTyped) {
  TestPlatform platform;
  const std::string password = InstallationPassword(platform.Get());
  const std::string key = RecoveryKeyFromPassword(password);
  EXPECT_EQ(PasswordFromRecoveryKey(key), password);
  std::string typed = key;
  std::transform(typed.begin(), typed.end(), typed.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  std::replace(typed.begin(), typed.end(), '-', ' ');
  std::replace(typed.begin(), typed.end(), '0', 'o');
  std::replace(typed.begin(), typed.end(), '1', 'l');
  EXPECT_EQ(PasswordFromRecoveryKey(" " + typed + "\n"), password);
}

TEST(RecoveryKey, EverySingleSlipIsNoticed) {
  const std::string key = RecoveryKeyFromPassword(std::string(64, 'a'));
  for (std::size_t i = 0; i < key.size(); ++i) {
    if (key[i] == '-') continue;
    std::string wrong = key;
    wrong[i] = key[i] == '7' ? '8' : '7';
    EXPECT_FALSE(PasswordFromRecoveryKey(wrong).has_value()) << wrong;
    wrong.erase(i, 1);
    EXPECT_FALSE(PasswordFromRecoveryKey(wrong).has_value()) << wrong;
  }
  EXPECT_FALSE(PasswordFromRecoveryKey("").has_value());
  EXPECT_FALSE(PasswordFromRecoveryKey(key + "0").has_value());
  EXPECT_EQ(RecoveryKeyFromPassword("no password of an installation"), "");
}

}  // namespace
}  // namespace corvanta
