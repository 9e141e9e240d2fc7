#include "platform/FileRegistry.h"
#include "platform/PlatformError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace corvanta {
namespace {

constexpr auto kUser = Hive::CurrentUser;
constexpr const char* kKey = "Software\\Corvanta 2.0\\Settings";

unsigned ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 0777U;
}

class FileRegistryTest : public ::testing::Test {
 protected:
  [[nodiscard]] FileRegistry Open() { return {userFile_, machineFile_, files_}; }

  TemporaryFolder folder_;
  SystemFiles files_;
  std::string userFile_ = folder_.Path("profile/registry.txt");
  std::string machineFile_ = folder_.Path("etc/corvanta/registry.txt");
};

TEST_F(FileRegistryTest, KeepsNastyTexts) {
  const std::vector<std::string> texts{"",
                                       " blanks ",
                                       "tab\there",
                                       "line\nend\r\n",
                                       "C:\\Data\\New",
                                       "[section]",
                                       "a=b=c",
                                       "# remark",
                                       "100%",
                                       "%41 %zz %",
                                       "\xC3\xBCml\xC3",
                                       "=",
                                       "\x01\x7F",
                                       "]",
                                       "über ÄÖÜ 漢字 😀",
                                       "\xEF\xBB\xBF",
                                       std::string(5000, 'x')};
  {
    FileRegistry registry = Open();
    for (const std::string& text : texts) {
      registry.Write(kUser, kKey, text, "value of " + text);
      registry.Write(kUser, kKey, "name of " + text, text);
      registry.Write(kUser, "Root\\" + text, "n", text);
    }
  }
  const FileRegistry registry = Open();
  for (const std::string& text : texts) {
    EXPECT_EQ(registry.Read(kUser, kKey, text), "value of " + text);
    EXPECT_EQ(registry.Read(kUser, kKey, "name of " + text), text);
    EXPECT_EQ(registry.Read(kUser, "Root\\" + text, "n"), text);
  }
  EXPECT_EQ(registry.ValueNames(kUser, kKey).size(), 2 * texts.size());
  EXPECT_EQ(registry.Read(Hive::LocalMachine, kKey, ""), std::nullopt);
}

TEST_F(FileRegistryTest, ListsAndDeletesKeysWithoutRegardToCase) {
  FileRegistry registry = Open();
  EXPECT_TRUE(registry.IsEmpty(kUser));
  registry.WriteAll(kUser, "Software\\Corvanta 2.0\\Reports\\Mine", {{"Name", "x"}});
  registry.Write(kUser, "software\\corvanta 2.0\\REPORTS\\Other\\", "Name", "y");
  registry.Write(kUser, "Software\\Corvanta 2.0\\ReportsToo", "Name", "z");
  registry.Write(kUser, "Software\\Corvanta 2.0\\Reports\\Mine", "NAME", "x2");
  EXPECT_EQ(registry.SubKeys(kUser, "Software\\Corvanta 2.0\\Reports"),
            (std::vector<std::string>{"Mine", "Other"}));
  EXPECT_EQ(registry.SubKeys(kUser, "software"), std::vector<std::string>{"Corvanta 2.0"});
  EXPECT_EQ(registry.ValueNames(kUser, "Software\\Corvanta 2.0\\Reports\\mine"),
            std::vector<std::string>{"Name"});
  EXPECT_EQ(registry.Read(kUser, "Software\\Corvanta 2.0\\Reports\\Mine", "name"), "x2");
  registry.DeleteKey(kUser, "Software\\Corvanta 2.0\\Reports");
  EXPECT_TRUE(registry.SubKeys(kUser, "Software\\Corvanta 2.0\\Reports").empty());
  EXPECT_EQ(registry.Read(kUser, "Software\\Corvanta 2.0\\ReportsToo", "name"), "z");
  EXPECT_FALSE(registry.IsEmpty(kUser));
  registry.DeleteValue(kUser, "Software\\Corvanta 2.0\\ReportsToo", "Name");
  registry.DeleteValue(kUser, "Nowhere", "Name");
  EXPECT_TRUE(registry.IsEmpty(kUser));
}

TEST_F(FileRegistryTest, UserFileIsOwnerOnlyMachineFileIsForAll) {
  FileRegistry registry = Open();
  registry.Write(kUser, kKey, "Height", "600");
  registry.Write(Hive::LocalMachine, kKey, "DBPath", "/srv/data");
  EXPECT_EQ(ModeOf(userFile_), 0600U);
  EXPECT_EQ(ModeOf(folder_.Path("profile")), 0700U);
  EXPECT_EQ(ModeOf(machineFile_), 0644U);
  EXPECT_EQ(ModeOf(folder_.Path("etc/corvanta")), 0755U);
}

TEST_F(FileRegistryTest, InstancesSeeAndKeepEachOthersValues) {
  FileRegistry one = Open();
  FileRegistry two = Open();
  for (int i = 0; i < 40; ++i) {
    // The same length each time, at once: size and clock tick alone would not tell the change.
    const std::string value = std::to_string(100 + i);
    (i % 2 == 0 ? one : two).Write(kUser, kKey, "Shared", value);
    (i % 2 == 0 ? two : one).Write(kUser, kKey, "Own" + value, value);
    ASSERT_EQ(one.Read(kUser, kKey, "Shared"), value);
    ASSERT_EQ(two.Read(kUser, kKey, "Shared"), value);
  }
  EXPECT_EQ(one.ValueNames(kUser, kKey).size(), 41U);
}

TEST_F(FileRegistryTest, ProcessesWritingAtOnceLoseNothing) {
  constexpr int kProcesses = 4;
  constexpr int kValues = 25;
  std::vector<pid_t> children;
  for (int p = 0; p < kProcesses; ++p) {
    const pid_t child = ::fork();
    if (child == 0) {
      FileRegistry registry = Open();
      for (int i = 0; i < kValues; ++i) {
        registry.Write(kUser, kKey, std::to_string(p) + "-" + std::to_string(i), "v");
      }
      ::_exit(0);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(Open().ValueNames(kUser, kKey).size(), static_cast<std::size_t>(kProcesses * kValues));
}

// Killed at any moment of a rewrite, the file holds one whole generation of its values.
TEST_F(FileRegistryTest, KilledWriterLeavesOldOrNew) {
  const std::string padding(20000, 'p');
  Open().WriteAll(kUser, kKey, {{"A", "0"}, {"Padding", padding}, {"Z", "0"}});
  int lastSeen = 0;
  for (int round = 0; round < 40; ++round) {
    int written[2];
    ASSERT_EQ(::pipe(written), 0);
    const pid_t child = ::fork();
    if (child == 0) {
      FileRegistry registry = Open();
      for (int i = lastSeen + 1;; ++i) {
        const std::string generation = std::to_string(i);
        registry.WriteAll(kUser, kKey, {{"A", generation}, {"Z", generation}});
        if (::write(written[1], "w", 1) != 1) ::_exit(1);
      }
    }
    // One whole rewrite is waited for; what the kill meets after it is left to chance.
    char done = 0;
    ASSERT_EQ(::read(written[0], &done, 1), 1);
    ::usleep(static_cast<useconds_t>(370 * round));
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ::close(written[0]);
    ::close(written[1]);
    FileRegistry registry = Open();
    const auto first = registry.Read(kUser, kKey, "A");
    ASSERT_TRUE(first);
    ASSERT_EQ(registry.Read(kUser, kKey, "Z"), first);
    ASSERT_EQ(registry.Read(kUser, kKey, "Padding"), padding);
    ASSERT_GT(std::stoi(*first), lastSeen);
    lastSeen = std::stoi(*first);
  }
}

TEST_F(FileRegistryTest, KeepsLinesThatMakeNoSense) {
  files_.CreateFolder(folder_.Path("profile"));
  folder_.Write("profile/registry.txt",
                "# by hand\r\nlost line\r\n[Software\\Corvanta 2.0\\Settings]\r\n Height = 600 \r\n"
                "no equals sign\r\nWidth=800\r\n[broken heading\r\nBelow=it\r\n[Other]\r\nA=1\r\n");
  FileRegistry registry = Open();
  EXPECT_EQ(registry.Read(kUser, kKey, "Height"), "600");
  EXPECT_EQ(registry.Read(kUser, kKey, "Width"), "800");
  EXPECT_EQ(registry.Read(kUser, kKey, "Below"), std::nullopt);
  EXPECT_EQ(registry.Read(kUser, "Other", "A"), "1");
  registry.Write(kUser, kKey, "Width", "801");
  const std::string text = ReadFile(userFile_);
  for (const char* kept : {"# by hand\n", "lost line\n", "no equals sign\nWidth=801\n",
                           "[broken heading\nBelow=it\n", "[Other]\nA=1\n", "Height=600\n"}) {
    EXPECT_NE(text.find(kept), std::string::npos) << kept << "in\n" << text;
  }
}

TEST_F(FileRegistryTest, NeverWritesOverWhatItCannotRead) {
  files_.CreateFolder(folder_.Path("profile"));
  const std::string garbage("Height=600\n\0\0\0\0", 15);
  folder_.Write("profile/registry.txt", garbage);
  FileRegistry registry = Open();
  try {
    registry.Write(kUser, kKey, "Height", "1");
    FAIL() << "written over";
  } catch (const PlatformError& error) {
    EXPECT_NE(std::string(error.what()).find(userFile_), std::string::npos) << error.what();
  }
  EXPECT_THROW((void)registry.Read(kUser, kKey, "Height"), PlatformError);
  EXPECT_THROW((void)registry.IsEmpty(kUser), PlatformError);
  EXPECT_EQ(ReadFile(userFile_), garbage);
}

TEST_F(FileRegistryTest, APipeInItsPlaceIsRefusedAndLeft) {
  files_.CreateFolder(folder_.Path("profile"));
  ASSERT_EQ(::mkfifo(userFile_.c_str(), 0600), 0);
  FileRegistry registry = Open();
  EXPECT_THROW((void)registry.Read(kUser, kKey, "Height"), PlatformError);
  EXPECT_THROW(registry.Write(kUser, kKey, "Height", "1"), PlatformError);
  EXPECT_TRUE(std::filesystem::is_fifo(userFile_));
}

// As many as no program writes: time that grows with their square would be hours.
TEST_F(FileRegistryTest, ManyKeysAndValuesAreReadInOneGo) {
  constexpr int kMany = 50'000;
  std::string text;
  for (int i = 0; i < kMany; ++i) text += "[Many\\Key " + std::to_string(i) + "]\nA=1\n";
  text += "[Values]\n";
  for (int i = 0; i < kMany; ++i)
    text += "Name " + std::to_string(i) + "=" + std::to_string(i) + "\n";
  files_.CreateFolder(folder_.Path("profile"));
  folder_.Write("profile/registry.txt", text);
  FileRegistry registry = Open();
  registry.Write(kUser, "VALUES", "NAME 7", "seven");
  registry.DeleteValue(kUser, "Values", "Name 8");
  registry.DeleteKey(kUser, "Many\\key 9");
  EXPECT_EQ(registry.SubKeys(kUser, "many").size(), kMany - 1U);
  EXPECT_EQ(registry.ValueNames(kUser, "values").size(), kMany - 1U);
  EXPECT_EQ(registry.Read(kUser, "Values", "Name 7"), "seven");
  EXPECT_EQ(registry.Read(kUser, "Values", "Name 8"), std::nullopt);
  EXPECT_EQ(registry.Read(kUser, "Values", "Name 9"), "9");
  EXPECT_EQ(registry.Read(kUser, "Many\\Key 10", "a"), "1");
}

TEST_F(FileRegistryTest, LinkedFileStaysALink) {
  const std::string target = folder_.Write("elsewhere.txt", "[Software]\nA=1\n");
  files_.CreateFolder(folder_.Path("profile"));
  std::filesystem::create_symlink(target, userFile_);
  Open().Write(kUser, "Software", "A", "2");
  EXPECT_TRUE(std::filesystem::is_symlink(userFile_));
  EXPECT_EQ(Open().Read(kUser, "Software", "A"), "2");
}

TEST_F(FileRegistryTest, RefusedWriteKeepsTheFormerValues) {
  class FullDisk : public SystemFiles {
   public:
    void WriteAtomically(const std::string& path, std::string_view) override {
      throw PlatformError("Cannot write " + path);
    }
  };
  Open().Write(kUser, kKey, "A", "1");
  FullDisk full;
  FileRegistry registry(userFile_, machineFile_, full);
  EXPECT_THROW(registry.Write(kUser, kKey, "A", "2"), PlatformError);
  EXPECT_EQ(registry.Read(kUser, kKey, "A"), "1");
}

}  // namespace
}  // namespace corvanta
