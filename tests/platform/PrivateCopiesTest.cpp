#include "platform/Files.h"
#include "platform/PrivateCopies.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvanta {
namespace {

namespace fs = std::filesystem;

TEST(PrivateCopies, NamesAreHarmless) {
  const TemporaryFolder folder;
  PrivateCopies copies(folder.Path("opened"));
  const auto name = [&](const std::string& asked) {
    return fs::path(copies.Put(asked, "x", false)).filename().string();
  };
  EXPECT_EQ(name("../../evil.sh"), "evil.sh");
  EXPECT_EQ(name("a\nb.txt"), "ab.txt");
  EXPECT_EQ(name(""), "attachment");
  EXPECT_EQ(name(".."), "attachment");
  EXPECT_EQ(name(".hidden"), "hidden");
  EXPECT_EQ(name(std::string(400, 'x') + ".pdf").size(), 200U);
}

TEST(PrivateCopies, CopiesAreWipedAndWhatWasReleasedStays) {
  const TemporaryFolder folder;
  std::string kept;
  {
    PrivateCopies copies(folder.Path("opened"));
    (void)copies.Put("a", "secret", false);
    kept = copies.Put("b", "mine", true);
    copies.Release(kept);
  }
  EXPECT_EQ(ReadFile(kept), "mine");
  int left = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder.Path("opened"))) {
    left += entry.is_regular_file() ? 1 : 0;
  }
  EXPECT_EQ(left, 1);
}

TEST(PrivateCopies, WhatWasSavedBesideACopyUnderAnotherNameStays) {
  const TemporaryFolder folder;
  std::string place;
  {
    PrivateCopies copies(folder.Path("opened"));
    const std::string looked = copies.Put("letter.odt", "secret", false);
    place = fs::path(looked).parent_path().string();
    SystemFiles().WriteNew(place + "/.~lock.letter.odt#", "of the other program");
    SystemFiles().WriteNew(place + "/letter with notes.odt", "work of an hour");
  }
  EXPECT_EQ(ReadFile(place + "/letter with notes.odt"), "work of an hour");
  EXPECT_FALSE(FileExists(place + "/letter.odt"));
}

TEST(PrivateCopies, WhatEndedProgramsLeftIsWipedUnlessItWasChanged) {
  const TemporaryFolder folder;
  SystemFiles files;
  const std::string opened = folder.Path("opened");
  std::string untouched;
  std::string running;
  {
    PrivateCopies copies(opened);
    untouched = copies.Put("untouched", "x", true);
    running = copies.Put("running", "x", true);
    copies.LeaveAll();
  }
  // Of a program that no longer runs.
  fs::rename(fs::path(untouched).parent_path(), opened + "/999999999-1");
  files.CreateFolder(opened + "/999999999-2");
  files.WriteNew(opened + "/999999999-2/changed", "work of an hour");
  files.CreateFolder(opened + "/of somebody else");
  files.WriteNew(opened + "/999999999-1/.~lock", "of another program");
  PrivateCopies copies(opened);
  const std::string kept = opened + "/kept-999999999-2/changed";
  EXPECT_EQ(copies.Sweep(), std::vector<std::string>{kept});
  EXPECT_EQ(ReadFile(kept), "work of an hour");
  EXPECT_FALSE(FolderExists(opened + "/999999999-1"));
  EXPECT_TRUE(FileExists(running));
  EXPECT_TRUE(copies.Sweep().empty());
}

}  // namespace
}  // namespace corvanta
