#include "platform/Files.h"
#include "safety/FrmBackup.h"
#include "safety/SafetyTest.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QLineEdit>

namespace corvanta {
namespace {

class BackupWindow : public DialogTest<SafetyTest> {
 protected:
  std::unique_ptr<FrmBackup> Open() {
    auto form =
        std::make_unique<FrmBackup>(File(), SafetyPlace{store_.platform.Get(), writer_, nullptr});
    Show(*form);
    return form;
  }
};

TEST_F(BackupWindow, OffersWhatTheSettingsSayAndMakesIt) {
  Set("BackupFS", "0");
  const auto form = Open();
  EXPECT_EQ(form->windowTitle(), "Backup");
  EXPECT_EQ(NoteOf(*form), "There is no backup of this data file yet.");
  const std::string place = store_.platform.folder.Path("data/Backup/Corvanta.dat");
  EXPECT_EQ(Find<QLineEdit>(*form, "txtBackup").text().toStdString(), place);
  EXPECT_FALSE(Find<QCheckBox>(*form, "chkBackupstore").isChecked());
  EXPECT_FALSE(Find<QCheckBox>(*form, "chkTransfer").isChecked()) << "on request only";
  store_.platform.prompts.ExpectTell("Backup", "The data file is backed up as " + place + ".");
  Click(*form, "cmdAccept");
  EXPECT_FALSE(form->isVisible());
  EXPECT_TRUE(form->IsChanged());
  EXPECT_EQ(Open()->findChild<QLabel*>("lblNote")->text().left(24), "The latest backup is of ");
}

TEST_F(BackupWindow, RefusesTheDataFileItselfAndKeepsWhatWasTyped) {
  const auto form = Open();
  auto& prompts = store_.platform.prompts;
  prompts.ExpectSaveFile("Save Backup File As", store_.Path());
  Click(*form, "cmdBrowse");
  EXPECT_EQ(prompts.Shown().back().file.filterPattern, "*.dat");
  prompts.ExpectTell("Backup",
                     "The selected backup file is the same as your data file. Please reselect");
  Click(*form, "cmdAccept");
  EXPECT_EQ(FocusOf(*form), "txtBackup");
  EXPECT_TRUE(form->isVisible());
  Type(*form, "txtBackup", "Mine.dat");
  prompts.ExpectTell(
      "Backup", "You need to enter the whole path of the backup file, or select it with Browse");
  Click(*form, "cmdAccept");
  EXPECT_EQ(FocusOf(*form), "txtBackup");
  EXPECT_FALSE(FileExists("Mine.dat")) << "wherever the program stands";
  Type(*form, "txtBackup", "/not/there/Mine.dat");
  prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Click(*form, "cmdAccept");
  EXPECT_EQ(Find<QLineEdit>(*form, "txtBackup").text(), "/not/there/Mine.dat");
}

}  // namespace
}  // namespace corvanta
