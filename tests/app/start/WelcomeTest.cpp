#include "app/WindowTest.h"
#include "app/start/FrmWelcome.h"
#include "platform/Files.h"
#include "support/DialogTest.h"

#include <QCommandLinkButton>

namespace corvanta {
namespace {

class Welcome : public DialogTest<WindowTest> {
 protected:
  void Start(bool empty) {
    OpenData(empty);
    ShowWindow();
    BringForward();
  }
  static void Press(QDialog& page, const char* way) {
    QTest::mouseClick(&Find<QCommandLinkButton>(page, way), Qt::LeftButton);
  }
  std::int64_t Accounts() {
    return session_.Ledger().Store().QueryValue("SELECT COUNT(*) FROM tblAccounts").Int();
  }
};

TEST_F(Welcome, GreetsOnceAndIsFoundInTheHelp) {
  Start(false);
  int shown = 0;
  const auto look = [&shown](QDialog& page) {
    EXPECT_EQ(page.objectName(), "FrmWelcome");
    ++shown;
    Click(page, "cmdClose");
  };
  InNextDialog(look);
  window_->Greet();
  EXPECT_EQ(shown, 1);
  window_->Greet();
  window_.reset();
  ShowWindow().Greet();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "it would be waited for";
  InNextDialog(look);
  Trigger("mnuHelpWelcome");
  EXPECT_EQ(shown, 2);
}

TEST_F(Welcome, WhoHasUsedTheProgramIsNotGreeted) {
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Height", "700");
  Start(false);
  window_->Greet();
  EXPECT_EQ(Setting("Greeted"), "(none)");
}

TEST_F(Welcome, AnAccountOfOnesOwnBeginsAnEmptyFileBesideTheSample) {
  Start(false);
  machine_.prompts.ExpectChoose("Welcome", ScriptedPrompts::kAnyText, std::nullopt);
  InNextDialog([](QDialog& page) { Press(page, "cmdAccount"); });
  Trigger("mnuHelpWelcome");
  EXPECT_EQ(Accounts(), 1) << "turned back: nothing has changed";
  machine_.prompts.ExpectChoose("Welcome", ScriptedPrompts::kAnyText, 0);
  bool isAsked = false;
  InNextDialog([&](QDialog& page) {
    InNextDialog([&](QDialog& account) {
      isAsked = account.objectName() == QStringLiteral("FrmAccounts");
      EXPECT_EQ(Accounts(), 0);
    });
    Press(page, "cmdAccount");
  });
  Trigger("mnuHelpWelcome");
  EXPECT_TRUE(isAsked);
  EXPECT_EQ(session_.Path(), DataFilePath());
  EXPECT_TRUE(FileExists(DataFolder() + "/Sample.dat"));
  // And back to the sample, from where the own file is a matter of File, Open.
  InNextDialog([](QDialog& page) { Press(page, "cmdSample"); });
  Trigger("mnuHelpWelcome");
  EXPECT_EQ(session_.Path(), DataFolder() + "/Sample.dat");
  EXPECT_EQ(Accounts(), 1);
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 1}));
}

TEST_F(Welcome, WithAFileOfOnesOwnTheSampleIsMade) {
  Start(true);
  InNextDialog([](QDialog& page) { Press(page, "cmdSample"); });
  Trigger("mnuHelpWelcome");
  EXPECT_EQ(Accounts(), 1);
  EXPECT_TRUE(FileExists(DataFilePath())) << "the own file is as it was";
}

TEST_F(Welcome, AFileOfAnotherIsNotTakenForTheSample) {
  Start(true);
  const std::string other = DataFolder() + "/Sample.dat";
  machine_.files.WriteAtomically(other, "no data file at all");
  const auto show = [this] {
    InNextDialog([](QDialog& page) { Press(page, "cmdSample"); });
    Trigger("mnuHelpWelcome");
  };
  show();
  EXPECT_EQ(session_.Path(), DataFolder() + "/Sample 2.dat");
  EXPECT_EQ(ReadFile(other), "no data file at all");
  EXPECT_TRUE(FileExists(DataFolder() + "/Backup/Corvanta.dat")) << "the own file was left";
  // The sample that was made is found again.
  session_.Choose(DataFilePath());
  EXPECT_FALSE(WindowTest::Find<QAction>("mnuHelpWelcome").isEnabled())
      << "there is no file to begin with";
  ASSERT_TRUE(session_.Open(true));
  window_->Reload();
  show();
  EXPECT_EQ(session_.Path(), DataFolder() + "/Sample 2.dat");
}

TEST_F(Welcome, AFileOfABankIsImportedIntoAFileOfOnesOwn) {
  Start(false);
  machine_.prompts.ExpectChoose("Welcome", ScriptedPrompts::kAnyText, 0);
  QString shown;
  InNextDialog([&](QDialog& page) {
    InNextDialog([&](QDialog& next) { shown = next.objectName(); });
    Press(page, "cmdImport");
  });
  Trigger("mnuHelpWelcome");
  EXPECT_EQ(shown, "FrmImport");
  EXPECT_EQ(session_.Path(), DataFilePath());
  EXPECT_EQ(Accounts(), 0);
}

TEST_F(Welcome, KeyAndBackupLeadBackToThePage) {
  Start(true);
  const std::string path = machine_.folder.Path("backup.dat");
  bool isKeyShown = false;
  InNextDialog([&](QDialog& page) {
    InNextDialog(
        [&](QDialog& key) { isKeyShown = key.objectName() == QStringLiteral("FrmRecoveryKey"); });
    Press(page, "cmdKey");
    EXPECT_TRUE(page.isVisible());
    machine_.prompts.ExpectSaveFile("Save Backup File As", path);
    Press(page, "cmdBackup");
    EXPECT_TRUE(page.isVisible());
    EXPECT_TRUE(Find<QCommandLinkButton>(page, "cmdBackup")
                    .description()
                    .contains(QStringLiteral("backup.dat")));
  });
  Trigger("mnuHelpWelcome");
  EXPECT_TRUE(isKeyShown);
  EXPECT_EQ(Setting("Backup"), path);
}

}  // namespace
}  // namespace corvanta
