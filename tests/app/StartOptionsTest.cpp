#include "app/start/StartOptions.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

StartOptions Read(const QStringList& arguments) {
  return ReadStartOptions(QStringList(QStringLiteral("corvanta")) + arguments);
}

TEST(StartOptions, TakeTheSameOptionsAsTheCommandLine) {
  const StartOptions options =
      Read({"--profile", "p", "--data=d/Corvanta.dat", "--today", "2026-02-28"});
  EXPECT_FALSE(options.error);
  EXPECT_EQ(options.profileFolder, "p");
  EXPECT_EQ(options.dataPath, "d/Corvanta.dat");
  EXPECT_EQ(options.today->ToIso(), "2026-02-28");
  EXPECT_EQ(Read({"my.dat"}).dataPath, "my.dat");
  EXPECT_FALSE(Read({}).today);
}

TEST(StartOptions, AFileOfABankIsToBeImportedIntoTheDataFile) {
  const StartOptions options = Read({"--data", "d", "bank.OFX"});
  EXPECT_FALSE(options.error);
  EXPECT_EQ(options.dataPath, "d");
  EXPECT_TRUE(options.importPath.ends_with("/bank.OFX")) << options.importPath;
  EXPECT_EQ(options.importPath.front(), '/');
  EXPECT_EQ(Read({"my.dat"}).importPath, "");
}

TEST(StartOptions, RefuseWhatTheyDoNotKnow) {
  for (const QStringList& wrong :
       {QStringList{"--nothing"}, QStringList{"--today", "tomorrow"}, QStringList{"--today"},
        QStringList{"a.dat", "b.dat"}, QStringList{"--data", "a.dat", "b.dat"}}) {
    EXPECT_TRUE(Read(wrong).error) << wrong.join(u' ').toStdString();
  }
}

TEST(StartOptions, LeaveTheWindowLibraryItsOwn) {
  EXPECT_EQ(WithoutWindowOptions({"corvanta", "-platform", "offscreen", "my.dat", "--style",
                                  "Fusion", "-reverse", "--data"}),
            QStringList({"corvanta", "my.dat", "--data"}));
}

TEST(StartOptions, AnswerWithoutStarting) {
  EXPECT_TRUE(Read({"--help"}).answer->contains("--profile"));
  EXPECT_TRUE(Read({"--version"}).answer->startsWith("corvanta") ||
              Read({"--version"}).answer->contains("0.0"));
}

}  // namespace
}  // namespace corvanta
