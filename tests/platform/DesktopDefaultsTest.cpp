#include "platform/DesktopDefaults.h"
#include "platform/Files.h"
#include "platform/Opener.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace corvanta {
namespace {

constexpr std::string_view kOurs = "corvanta.desktop";

TEST(DesktopDefaults, OursGoesFirstAndLeavesWithoutATrace) {
  const std::string before =
      "# mine\n"
      "[Added Associations]\n"
      "application/x-qw=other.desktop;\n"
      "\n"
      "[Default Applications]\n"
      "text/plain=editor.desktop\n"
      "application/x-qw=other.desktop\n"
      "[Removed Associations]\n"
      "application/x-ofx=third.desktop;\n";
  const std::string with = WithDefaults(before, kOurs, {kQifType, kOfxType}, true);
  EXPECT_EQ(with,
            "# mine\n"
            "[Added Associations]\n"
            "application/x-qw=other.desktop;\n"
            "\n"
            "[Default Applications]\n"
            "application/x-ofx=corvanta.desktop;\n"
            "text/plain=editor.desktop\n"
            "application/x-qw=corvanta.desktop;other.desktop;\n"
            "[Removed Associations]\n"
            "application/x-ofx=third.desktop;\n");
  EXPECT_EQ(WithDefaults(with, kOurs, {kQifType, kOfxType}, true), with);
  const std::string without = WithDefaults(with, kOurs, {kQifType, kOfxType}, false);
  EXPECT_EQ(without.find(kOurs), std::string::npos);
  EXPECT_NE(without.find("\napplication/x-qw=other.desktop;\n"), std::string::npos);
  EXPECT_EQ(WithDefaults("", kOurs, {kQifType}, true),
            "[Default Applications]\napplication/x-qw=corvanta.desktop;\n");
  EXPECT_EQ(WithDefaults("text without end", kOurs, {kQifType}, false), "text without end");
}

// Sets an environment variable for the length of a test.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    ::setenv(name, value.c_str(), 1);
  }
  ~Variable() {
    if (before_.empty()) {
      ::unsetenv(name_);
    } else {
      ::setenv(name_, before_.c_str(), 1);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::string before_;
};

TEST(DesktopDefaults, OnlyAnInstalledProgramIsGivenFiles) {
  TemporaryFolder folder;
  const Variable config("XDG_CONFIG_HOME", folder.Path("config"));
  const Variable data("XDG_DATA_HOME", folder.Path("share"));
  const Variable others("XDG_DATA_DIRS", folder.Path("none"));
  const std::string list = folder.Path("config/mimeapps.list");
  DesktopOpener opener;
  EXPECT_FALSE(opener.Associate({kQifType}, true));
  EXPECT_FALSE(FileExists(list));
  SystemFiles().CreateFolder(folder.Path("share/applications"));
  folder.Write("share/applications/corvanta.desktop", "[Desktop Entry]\n");
  EXPECT_TRUE(opener.Associate({kQifType}, true));
  EXPECT_EQ(ReadFile(list), "[Default Applications]\napplication/x-qw=corvanta.desktop;\n");
  EXPECT_TRUE(opener.Associate({kQifType}, false));
  EXPECT_EQ(ReadFile(list), "[Default Applications]\n");
}

}  // namespace
}  // namespace corvanta
