#include "app/SafetyCommands.h"
#include "app/WindowTest.h"
#include "controls/DateField.h"
#include "controls/ListTable.h"
#include "controls/SortedTable.h"
#include "platform/Files.h"
#include "safety/FrmArchive.h"
#include "safety/FrmBackup.h"
#include "safety/FrmRestore.h"
#include "safety/FrmSalvage.h"
#include "safety/RecentFiles.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/sql/Connection.h"

#include <QMenu>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <tuple>

namespace corvanta {
namespace {

class SafetyCommands : public WindowTest {
 protected:
  // Does something in the dialog that comes up next, and closes it where it still stands.
  template <typename Form>
  void InNext(const std::function<void(Form&)>& act) {
    QTimer::singleShot(0, qApp, [this, act] {
      auto* form = qobject_cast<Form*>(QApplication::activeModalWidget());
      ASSERT_NE(form, nullptr);
      ++dialogs_;
      act(*form);
      if (form->isVisible()) form->done(QDialog::Rejected);
    });
  }
  static void Press(QWidget& form, const char* name) {
    form.findChild<QPushButton*>(QLatin1String(name))->click();
  }
  void RestoreFirst() {
    InNext<FrmRestore>([](FrmRestore& form) {
      auto* list = form.findChild<ListTable*>(QStringLiteral("lvBackups"));
      list->selectRow(0);
      Press(form, "cmdAccept");
    });
  }
  [[nodiscard]] std::string Backups() const { return DataFolder() + "/Backup/Corvanta.dat"; }
  [[nodiscard]] std::int64_t Rows() {
    return session_.Ledger().Store().QueryValue("Select Count(*) from tblTransactions").Int();
  }

  int dialogs_ = 0;
};

TEST_F(SafetyCommands, ANewDataFileIsMadeBesideAndNeverOver) {
  OpenData();
  ShowWindow();
  machine_.prompts.ExpectSaveFile("Create Data File", DataFilePath());
  machine_.prompts.ExpectTell("Create Data File", ScriptedPrompts::kAnyText);
  Trigger("mnuFileNew");
  EXPECT_EQ(session_.Path(), DataFilePath());
  machine_.prompts.ExpectSaveFile("Create Data File", machine_.folder.Path("Second"));
  Trigger("mnuFileNew");
  const std::string path = machine_.folder.Path("Second.dat");
  EXPECT_EQ(session_.Path(), path);
  EXPECT_EQ(Setting("DBPath"), path);
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(RecentFiles(machine_.registry).List(),
            (std::vector<std::string>{path, DataFilePath()}));
}

TEST_F(SafetyCommands, SaveAsGoesOnWithTheCopy) {
  OpenData();
  session_.PostSchedules();
  ShowWindow();
  const std::int64_t rows = Rows();
  machine_.prompts.ExpectSaveFile("Save Data File As", DataFilePath());
  machine_.prompts.ExpectTell("Corvanta Personal Finance", ScriptedPrompts::kAnyText);
  Trigger("mnuFileSaveAs");
  EXPECT_EQ(session_.Path(), DataFilePath()) << "not over itself";
  const std::string other = machine_.folder.Write("Copy.dat", "Dear bank");
  machine_.prompts.ExpectSaveFile("Save Data File As", other);
  Trigger("mnuFileSaveAs");
  EXPECT_EQ(session_.Path(), other);
  EXPECT_EQ(Rows(), rows);
  EXPECT_EQ(ReadFile(other + ".old"), "Dear bank");
  EXPECT_TRUE(FileExists(DataFilePath()));
}

TEST_F(SafetyCommands, RecentFilesAreAWayBack) {
  OpenData();
  ShowWindow();
  machine_.prompts.ExpectSaveFile("Create Data File", machine_.folder.Path("Second.dat"));
  Trigger("mnuFileNew");
  RecentFiles(machine_.registry).Add(machine_.folder.Path("gone.dat"));
  auto* menu = Find<QAction>("mnuFileRecent").menu();
  Q_EMIT menu->aboutToShow();
  ASSERT_EQ(menu->actions().size(), 2) << "without the open one";
  machine_.prompts.ExpectTell("Open Data File", ScriptedPrompts::kAnyText);
  menu->actions().at(0)->trigger();
  EXPECT_EQ(session_.Path(), machine_.folder.Path("Second.dat"));
  Q_EMIT menu->aboutToShow();
  ASSERT_EQ(menu->actions().size(), 1) << "what is gone is forgotten";
  menu->actions().at(0)->trigger();
  EXPECT_EQ(session_.Path(), DataFilePath());
}

TEST_F(SafetyCommands, ABackupIsMadeWhenTheFileIsLeft) {
  OpenData();
  ShowWindow().close();
  EXPECT_TRUE(FileExists(Backups()));
  EXPECT_TRUE(session_.IsOpen());
  machine_.files.Remove(Backups());
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "SkipBackup", "1");
  window_->show();
  window_->close();
  EXPECT_FALSE(FileExists(Backups()));
  // One that fails keeps nobody from leaving, and is told at the next start.
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "SkipBackup", "0");
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Backup", "/nowhere/Mine.dat");
  window_->show();
  window_->close();
  EXPECT_FALSE(window_->isVisible());
  machine_.prompts.ExpectAsk("Backup", ScriptedPrompts::kAnyText, false);
  RemindOfFailedBackup(session_, machine_.Get());
}

TEST_F(SafetyCommands, NobodyIsSentToAWindowThatLeavesItsFile) {
  OpenData();
  ShowWindow();
  QStringList shown;
  QObject::connect(window_.get(), &FrmMain::FileShown, qApp,
                   [&shown](const QString& path) { shown.append(path); });
  const std::string second = machine_.folder.Path("Second.dat");
  machine_.prompts.ExpectSaveFile("Create Data File", second);
  Trigger("mnuFileNew");
  ASSERT_GE(shown.size(), 2);
  EXPECT_EQ(shown.first(), QString());
  EXPECT_EQ(shown.last().toStdString(), second);
  window_->close();
  EXPECT_EQ(shown.last(), QString());
}

TEST_F(SafetyCommands, RestoringBringsTheRowsBackIntoTheWindow) {
  OpenData();
  session_.PostSchedules();
  ShowWindow();
  const std::int64_t rows = Rows();
  machine_.prompts.ExpectTell("Backup", "The data file is backed up as " + Backups() + ".");
  InNext<FrmBackup>([](FrmBackup& form) { Press(form, "cmdAccept"); });
  Trigger("mnuFileBackup");
  Run("Delete from tblTransactions");
  RestoreFirst();
  machine_.prompts.ExpectAsk("Restore", ScriptedPrompts::kAnyText, true);
  machine_.prompts.ExpectTell("Restore", ScriptedPrompts::kAnyText);
  Trigger("mnuFileRestore");
  ASSERT_TRUE(session_.IsOpen());
  EXPECT_EQ(Rows(), rows);
  EXPECT_EQ(dialogs_, 2);
}

TEST_F(SafetyCommands, ADamagedFileLeadsToItsBackups) {
  OpenData();
  BackUpOnLeaving(session_, machine_.Get());
  ShowWindow();
  session_.Close();
  std::string bytes = ReadFile(DataFilePath());
  bytes.replace(16, 4080, std::string(4080, '?'));
  machine_.folder.Write("data/Corvanta.dat", bytes);
  machine_.prompts.ExpectChoose("Open Data File", ScriptedPrompts::kAnyText, 0);
  machine_.prompts.ExpectAsk("Restore", ScriptedPrompts::kAnyText, true);
  machine_.prompts.ExpectTell("Restore", ScriptedPrompts::kAnyText);
  RestoreFirst();
  EXPECT_TRUE(session_.Open(true));
  const auto& shown = machine_.prompts.Shown();
  const auto asked =
      std::ranges::find(shown, ScriptedPrompts::Kind::Choose, &ScriptedPrompts::Record::kind);
  ASSERT_NE(asked, shown.end());
  EXPECT_EQ(asked->answers.front(), "Restore a backup");
}

TEST_F(SafetyCommands, ADamagedFileIsSalvagedIntoANewOneThatOpens) {
  OpenData();
  session_.PostSchedules();
  ShowWindow();
  const std::int64_t rows = Rows();
  {
    Transaction all = session_.Ledger().Store().Begin();
    for (int payee = 0; payee < 500; ++payee) {
      Run("INSERT INTO tblPayees (Payee) VALUES ('A payee of many, " + std::to_string(payee) +
          "')");
    }
    all.Commit();
  }
  session_.Close();
  // Its last page alone, which holds payees.
  std::string bytes = ReadFile(DataFilePath());
  bytes.replace(bytes.size() - 4096, 4096, std::string(4096, '?'));
  machine_.folder.Write("data/Corvanta.dat", bytes);
  const std::string salvaged = DataFolder() + "/Corvanta salvaged.dat";
  InNext<FrmSalvage>([](FrmSalvage& form) {
    Press(form, "cmdAccept");
    Press(form, "cmdOpen");
  });
  Trigger("mnuFileSalvage");
  EXPECT_EQ(dialogs_, 1);
  ASSERT_TRUE(session_.IsOpen());
  EXPECT_EQ(session_.Path(), salvaged);
  EXPECT_EQ(Setting("DBPath"), salvaged);
  EXPECT_LE(Rows(), rows);
}

TEST_F(SafetyCommands, TheMessageOfADamagedFileLeadsToSalvage) {
  OpenData();
  ShowWindow();
  session_.Close();
  std::string bytes = ReadFile(DataFilePath());
  bytes.replace(16, 4080, std::string(4080, '?'));
  machine_.folder.Write("data/Corvanta.dat", bytes);
  // Not even its beginning can be read: that is told, and another road can be taken.
  machine_.prompts.ExpectChoose("Open Data File", ScriptedPrompts::kAnyText, 1);
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  machine_.prompts.ExpectChoose("Open Data File", ScriptedPrompts::kAnyText, std::nullopt);
  InNext<FrmSalvage>([](FrmSalvage& form) { Press(form, "cmdAccept"); });
  EXPECT_FALSE(session_.Open(true));
  EXPECT_EQ(dialogs_, 1);
  const auto& shown = machine_.prompts.Shown();
  const auto asked =
      std::ranges::find(shown, ScriptedPrompts::Kind::Choose, &ScriptedPrompts::Record::kind);
  ASSERT_NE(asked, shown.end());
  EXPECT_EQ(asked->answers.at(1), "Salvage what can be read");
}

TEST_F(SafetyCommands, ArchivingShowsInTheWindowAndCanBeUndone) {
  OpenData();
  session_.PostSchedules();
  ShowWindow();
  window_->Show({kTransactionShow, 1});
  const std::int64_t rows = Rows();
  const double balance = window_->Accounts().front().balance;
  InNext<FrmArchive>([this](FrmArchive& form) {
    machine_.prompts.ExpectTell("Archive", ScriptedPrompts::kAnyText);
    Press(form, "cmdAccept");
  });
  Trigger("mnuFileArchive");
  EXPECT_EQ(Rows(), rows) << "nothing is as old as the day that is offered";
  InNext<FrmArchive>([this](FrmArchive& form) {
    form.findChild<DateField*>(QStringLiteral("dtBefore"))
        ->SetDay(machine_.clock.Today().AddDays(-7));
    machine_.prompts.ExpectAsk("Archive", ScriptedPrompts::kAnyText, true);
    machine_.prompts.ExpectTell("Archive", ScriptedPrompts::kAnyText);
    Press(form, "cmdAccept");
  });
  Trigger("mnuFileArchive");
  EXPECT_EQ(dialogs_, 2);
  const std::int64_t left = Rows();
  EXPECT_LT(left, rows);
  auto& list = Find<SortedTable>("lvbank");
  const int shown = list.model()->rowCount();
  EXPECT_NEAR(window_->Accounts().front().balance, balance, 0.001);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Rows(), rows);
  EXPECT_GT(list.model()->rowCount(), shown);
  EXPECT_NEAR(window_->Accounts().front().balance, balance, 0.001);
}

TEST_F(SafetyCommands, ATransferFileIsWrittenWhereItDoesNoHarm) {
  OpenData();
  ShowWindow();
  machine_.prompts.ExpectSaveFile("Save Transfer File As", DataFolder() + "/Corvanta.tfr");
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Trigger("mnuFileTransfer");
  EXPECT_FALSE(FileExists(DataFolder() + "/Corvanta.tfr"));
  const std::string path = machine_.folder.Path("Corvanta.tfr");
  machine_.prompts.ExpectSaveFile("Save Transfer File As", path);
  Trigger("mnuFileTransfer");
  EXPECT_EQ(TransferFile::FromText(ReadFile(path))->password, session_.Password());
}

TEST_F(SafetyCommands, NothingIsSavedOverTheDataFileOrTheKey) {
  OpenData();
  ShowWindow();
  const std::string folder = machine_.folder.Path("usb");
  machine_.files.CreateFolder(folder);
  const std::string key = ReadFile(InstallationKeyPath(machine_.Get()));
  std::filesystem::create_symlink(session_.Path(), folder + "/link.tfr");
  for (const auto& [command, question, path] :
       {std::tuple("mnuFileTransfer", "Save Transfer File As", folder + "/link.tfr"),
        std::tuple("mnuFileTransfer", "Save Transfer File As", InstallationKeyPath(machine_.Get())),
        std::tuple("mnuFileSaveAs", "Save Data File As", DataFolder() + "/Corvanta.dat")}) {
    machine_.prompts.ExpectSaveFile(question, path);
    machine_.prompts.ExpectTell("Corvanta Personal Finance", ScriptedPrompts::kAnyText);
    Trigger(command);
    EXPECT_NE(machine_.prompts.Shown().back().text.find("Choose another name."), std::string::npos);
  }
  EXPECT_EQ(ReadFile(InstallationKeyPath(machine_.Get())), key);
  EXPECT_NE(Connection::Open({session_.Path(), session_.Password(), {}}, machine_.clock), nullptr);
}

TEST_F(SafetyCommands, WithoutAnOpenFileTheWaysToOneRemain) {
  PutDataFile(machine_);
  ShowWindow();
  for (const char* name : {"mnuFileNew", "mnuFileOpen", "mnuFileRestore"}) {
    EXPECT_TRUE(Find<QAction>(name).isEnabled()) << name;
  }
  for (const char* name : {"mnuFileSaveAs", "mnuFileBackup", "mnuFileArchive", "mnuFileTransfer"}) {
    EXPECT_FALSE(Find<QAction>(name).isEnabled()) << name;
  }
}

}  // namespace
}  // namespace corvanta
