#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvanta {
namespace {

namespace fs = std::filesystem;

class OwnFilesTest : public ::testing::Test {
 protected:
  // What the person is told; empty where the file was written.
  std::string Refusal(const std::string& path, FormerFile former = FormerFile::Replace) {
    try {
      files_.Save(path, "a report", former);
      return {};
    } catch (const FileRefused& refusal) {
      return refusal.what();
    }
  }

  const TemporaryFolder folder_;
  const std::string home_ = folder_.Write("home.dat", "accounts");
  const std::string absent_ = folder_.Path("home.dat-journal");
  SystemFiles files_;
  KeptFiles kept_ = files_.Own().Keep({{home_, "the data file in use"}, {absent_, "its own name"}});
};

TEST_F(OwnFilesTest, NothingIsSavedOverThemByWhateverName) {
  fs::create_directory(folder_.Path("other"));
  fs::create_directory_symlink(folder_.Path(), folder_.Path("other/folder"));
  fs::create_symlink(home_, folder_.Path("other/report.csv"));
  fs::create_hard_link(home_, folder_.Path("second.csv"));
  for (const std::string& path :
       {home_, folder_.Path("other/../home.dat"), folder_.Path("other/folder/home.dat"),
        folder_.Path("other/report.csv"), folder_.Path("second.csv")}) {
    EXPECT_EQ(Refusal(path), "This is the data file in use: " + path +
                                 ". Nothing was written. Choose another name.");
    EXPECT_NE(Refusal(path, FormerFile::Refuse), "");
  }
  EXPECT_EQ(ReadFile(home_), "accounts");
  for (const std::string& path : {absent_, folder_.Path("other/folder/home.dat-journal")}) {
    EXPECT_NE(Refusal(path), "");
    EXPECT_NE(Refusal(path, FormerFile::Refuse), "");
  }
  EXPECT_FALSE(FileExists(absent_));
}

TEST_F(OwnFilesTest, AllElseIsAndWhatIsNoLongerKept) {
  const std::string other = folder_.Write("other.csv", "former");
  EXPECT_NE(Refusal(other, FormerFile::Refuse), "");
  EXPECT_EQ(ReadFile(other), "former");
  EXPECT_EQ(Refusal(other), "");
  EXPECT_EQ(ReadFile(other), "a report");
  EXPECT_EQ(Refusal(folder_.Path("new.csv"), FormerFile::Refuse), "");
  // The file under the name is what counts, not the one that was there at first.
  fs::rename(home_, folder_.Path("moved.dat"));
  folder_.Write("home.dat", "renewed");
  EXPECT_NE(Refusal(home_), "");
  EXPECT_EQ(Refusal(folder_.Path("moved.dat")), "");
  kept_.reset();
  EXPECT_EQ(Refusal(home_), "");
}

}  // namespace
}  // namespace corvanta
