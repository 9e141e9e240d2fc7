#include "platform/FileBeginning.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace corvanta {
namespace {

std::size_t FilesIn(const std::string& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

// Opened as files are, each of them would wait for ever.
TEST(Files, ReadsNothingButOrdinaryFiles) {
  const TemporaryFolder folder;
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/zero", folder.Path("device"));
  std::filesystem::create_symlink(folder.Write("real.txt", "text"), folder.Path("link"));
  for (const std::string& path : {pipe, folder.Path("device"), folder.Path()}) {
    try {
      (void)ReadFile(path);
      FAIL() << path;
    } catch (const PlatformError& error) {
      EXPECT_NE(std::string(error.what()).find("Cannot read " + path), std::string::npos);
    }
  }
  EXPECT_EQ(ReadFile(folder.Path("link")), "text");
  EXPECT_EQ(ReadBeginning(folder.Path("link"), 2), "te");
  EXPECT_EQ(ReadBeginning(folder.Path("link"), 9), "text");
  for (const std::string& path :
       {pipe, folder.Path("device"), folder.Path(), folder.Path("none")}) {
    EXPECT_EQ(ReadBeginning(path, 9), "") << path;
  }
  SystemFiles().Replace(pipe, folder.Path("moved"));
  EXPECT_TRUE(std::filesystem::is_fifo(folder.Path("moved")));
}

TEST(Files, WritesAndReplacesLeavingNothingBeside) {
  const TemporaryFolder folder;
  SystemFiles files;
  const std::string path = folder.Path("a.txt");
  files.WriteAtomically(path, "one");
  files.WriteAtomically(path, "two");
  EXPECT_EQ(ReadFile(path), "two");
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  files.Replace(folder.Write("b.txt", "three"), path);
  EXPECT_EQ(ReadFile(path), "three");
  EXPECT_EQ(FilesIn(folder.Path()), 1U);
  EXPECT_THROW(files.Replace(folder.Path("none"), path), PlatformError);
  EXPECT_THROW(files.WriteAtomically(folder.Path("no/such/folder"), "x"), PlatformError);
  files.CreateFolder(folder.Path("d/e/f"));
  EXPECT_TRUE(FolderExists(folder.Path("d/e/f")));
  EXPECT_THROW(files.WriteAtomically(folder.Path("d"), "over a folder"), PlatformError);
  EXPECT_THROW(files.CreateFolder(path), PlatformError);
  EXPECT_EQ(FilesIn(folder.Path()), 2U);
}

TEST(Files, KeepsALinkAndReplacesWhatItPointsTo) {
  const TemporaryFolder folder;
  SystemFiles files;
  const std::string target = folder.Write("target.txt", "old");
  const std::string link = folder.Path("link.txt");
  std::filesystem::create_symlink("target.txt", link);
  files.WriteAtomically(link, "new");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(ReadFile(target), "new");
  const std::string dangling = folder.Path("dangling.txt");
  std::filesystem::create_symlink("nothing.txt", dangling);
  EXPECT_THROW(files.WriteAtomically(dangling, "x"), PlatformError);
  std::filesystem::create_symlink("/dev/null", folder.Path("null.txt"));
  EXPECT_THROW(files.WriteAtomically(folder.Path("null.txt"), "x"), PlatformError);
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_THROW(files.WriteAtomically(pipe, "x"), PlatformError);
  // A link of another user may be a trap.
  if (::geteuid() == 0) {
    ASSERT_EQ(::lchown(link.c_str(), 12345, 12345), 0);
    EXPECT_THROW(files.WriteAtomically(link, "x"), PlatformError);
  }
  EXPECT_EQ(ReadFile(target), "new");
  EXPECT_EQ(FilesIn(folder.Path()), 5U);
}

TEST(Files, ANewFileReplacesNothing) {
  const TemporaryFolder folder;
  SystemFiles files;
  const std::string path = folder.Path("a.txt");
  files.WriteNew(path, "one");
  EXPECT_THROW(files.WriteNew(path, "two"), PlatformError);
  EXPECT_EQ(ReadFile(path), "one");
  const std::string link = folder.Path("link.txt");
  std::filesystem::create_symlink("nothing.txt", link);
  EXPECT_THROW(files.WriteNew(link, "x"), PlatformError);
  EXPECT_EQ(FilesIn(folder.Path()), 2U);
}

TEST(Files, AWriteThatFindsNoRoomNamesTheFileThatWasMeant) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("a.txt");
  const auto former = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit none{0, limit.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &none), 0);
  std::string told;
  try {
    SystemFiles().WriteAtomically(path, "one");
  } catch (const PlatformError& error) {
    told = error.what();
  }
  ::setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, former);
  EXPECT_TRUE(told.starts_with("Cannot write " + path + ":")) << told;
  EXPECT_EQ(FilesIn(folder.Path()), 0U);
}

TEST(Files, RemovesWhatIsThere) {
  const TemporaryFolder folder;
  SystemFiles files;
  const std::string path = folder.Write("a.txt", "x");
  files.Remove(path);
  files.Remove(path);
  EXPECT_FALSE(FileExists(path));
  EXPECT_THROW(files.Remove(folder.Path()), PlatformError);
}

TEST(Files, ReadsWithinItsLimit) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.bin", std::string("x\0y", 3));
  EXPECT_EQ(ReadFile(path, 3).size(), 3U);
  EXPECT_THROW((void)ReadFile(path, 2), PlatformError);
  EXPECT_THROW((void)ReadFile(folder.Path("none")), PlatformError);
  EXPECT_THROW((void)ReadFile(folder.Path()), PlatformError);
}

TEST(Files, OwnersMarkCountsForPrivilegedUsersToo) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "x");
  EXPECT_FALSE(IsReadOnly(path));
  ::chmod(path.c_str(), 0400);
  EXPECT_TRUE(IsReadOnly(path));
  EXPECT_FALSE(IsReadOnly(folder.Path("none")));
}

}  // namespace
}  // namespace corvanta
