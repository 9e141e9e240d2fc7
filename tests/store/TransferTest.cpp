#include "platform/PlatformError.h"
#include "platform/SettingsTable.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/datafile/opening/clsCipher.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(Cipher, ReadsBackAndRefusesDamage) {
  const clsCipher cipher;
  for (const std::string text : {"", "secret", "it's Ünïcode\n", "999@0123456789abcdef"}) {
    const std::string line = cipher.Encipher(text);
    EXPECT_EQ(line.find_first_of("\r\n "), std::string::npos);
    EXPECT_EQ(cipher.Decipher(line), text);
  }
  const std::string line = cipher.Encipher("secret");
  for (std::size_t i = 0; i < line.size(); ++i) {
    std::string damaged = line;
    damaged[i] = damaged[i] == 'A' ? 'B' : 'A';
    EXPECT_FALSE(cipher.Decipher(damaged).has_value()) << i;
    EXPECT_FALSE(cipher.Decipher(line.substr(0, i)).has_value()) << i;
  }
  EXPECT_NE(cipher.Encipher("secret"), line);
}

// Counts how often something is written.
class CountingRegistry : public MemoryRegistry {
 public:
  void WriteKeys(Hive hive, const RegistryKeys& keys) override {
    ++writes;
    MemoryRegistry::WriteKeys(hive, keys);
  }
  int writes = 0;
};

class Transfer : public ::testing::Test {
 protected:
  std::string Read(std::string_view key, std::string_view name) {
    return platform.registry.Read(Hive::CurrentUser, key, name).value_or("(none)");
  }
  TestPlatform platform;
};

TEST_F(Transfer, CarriesPasswordAndSettingsToAnotherMachine) {
  MemoryRegistry old;
  const std::string reports(kReportsKey);
  old.Write(Hive::CurrentUser, kSettingsKey, "DBPath", "/home/old");
  old.Write(Hive::CurrentUser, kSettingsKey, "Height", "600");
  old.Write(Hive::CurrentUser, kSettingsKey, "Empty", "");
  old.Write(Hive::CurrentUser, reports + "\\By month", "Title", " two\nlines = [x] 100% ");
  old.Write(Hive::CurrentUser, reports + "\\By month\\Columns", "Date", "D");
  old.Write(Hive::CurrentUser, kStocksKey, "Watch", "MSF,BT-A.L");
  old.Write(Hive::CurrentUser, kCurrencyKey, "GBP", "1");
  const std::string path = platform.folder.Path("Corvanta.tfr");
  WriteTransferFile(path, "old password", old, platform.files);

  const auto transfer = TransferFile::FromText(ReadFile(path));
  ASSERT_TRUE(transfer.has_value());
  EXPECT_EQ(transfer->password, "old password");
  EXPECT_EQ(ReadFile(path).find("old password"), std::string::npos);
  platform.registry.Write(Hive::CurrentUser, kSettingsKey, "DBPath", "/home/new");
  platform.registry.Write(Hive::CurrentUser, kSettingsKey, "Width", "800");
  transfer->WriteSettings(platform.registry);
  EXPECT_EQ(Read(kSettingsKey, "DBPath"), "/home/new");
  EXPECT_EQ(Read(kSettingsKey, "Width"), "800");
  EXPECT_EQ(Read(kSettingsKey, "Height"), "600");
  EXPECT_EQ(Read(kSettingsKey, "Empty"), "");
  EXPECT_EQ(Read(reports + "\\By month", "Title"), " two\nlines = [x] 100% ");
  EXPECT_EQ(Read(reports + "\\By month\\Columns", "Date"), "D");
  EXPECT_EQ(Read(kStocksKey, "Watch"), "MSF,BT-A.L");
  EXPECT_EQ(Read(kCurrencyKey, "GBP"), "1");
}

TEST_F(Transfer, SettingsWithAllTheirKeysAreWrittenAtOnce) {
  const auto transfer = TransferFile::FromText(
      clsCipher().Encipher("plain") +
      "\n[SETTINGS]\nHeight=600\n[REPORTS]\nLast=1\n[REPORTS\\One]\nTitle=a\n[REPORTS\\Two]\n"
      "Title=b\n[STOCKS]\nItem1=MSF\n");
  CountingRegistry registry;
  transfer->WriteSettings(registry);
  EXPECT_EQ(registry.writes, 1);
  EXPECT_EQ(registry.Read(Hive::CurrentUser, std::string(kReportsKey) + "\\Two", "Title"), "b");
  EXPECT_EQ(registry.Read(Hive::CurrentUser, kStocksKey, "Item1"), "MSF");
  registry.RefuseWrites(true);
  EXPECT_THROW(transfer->WriteSettings(registry), PlatformError);
}

TEST_F(Transfer, ReaderPutsUpWithForeignLineEndsAndSections) {
  const std::string line = clsCipher().Encipher("plain");
  const std::string longValue(100'000, 'x');
  const auto transfer = TransferFile::FromText(
      "\xEF\xBB\xBF  999@" + line + " \r\n\r\nnoise\r\n[OTHER]\r\nHeight=1\r\n[settings]\r\n" +
      "Height=600\r\nno value\r\ndbpath=/x\r\nLong=" + longValue + "\r\n[STOCKS]\r\nLast=1");
  ASSERT_TRUE(transfer.has_value());
  EXPECT_EQ(transfer->password, "plain");
  transfer->WriteSettings(platform.registry);
  EXPECT_EQ(Read(kSettingsKey, "Height"), "600");
  EXPECT_EQ(Read(kSettingsKey, "Long"), longValue);
  EXPECT_EQ(Read(kSettingsKey, "DBPath"), "(none)");
  EXPECT_EQ(Read(kStocksKey, "Last"), "1");
}

TEST_F(Transfer, WithoutAPasswordItIsNone) {
  for (const std::string text : {"", "\n", "[SETTINGS]\nHeight=1\n", "999@\n"}) {
    EXPECT_FALSE(TransferFile::FromText(text).has_value()) << text;
  }
  EXPECT_FALSE(TransferFile::FromText("\n" + clsCipher().Encipher("x")).has_value());
}

}  // namespace
}  // namespace corvanta
