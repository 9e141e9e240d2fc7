#include "invest/ucEntryList.h"
#include "ledger/clsCorvanta.h"
#include "platform/Files.h"
#include "safety/FrmArchive.h"
#include "safety/FrmRestore.h"
#include "safety/SafetyTest.h"
#include "support/DeafOpening.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QStandardItemModel>

namespace corvanta {
namespace {

class RestoreWindow : public DialogTest<SafetyTest> {
 protected:
  static QStringList Cells(const QAbstractItemView& list, int row) {
    QStringList cells;
    for (int column = 0; column < list.model()->columnCount(); ++column) {
      cells.append(list.model()->index(row, column).data().toString());
    }
    return cells;
  }

  FilePasswords passwords_{store_.platform.Get()};
  DeafOpening questions_;
  RestoreEditor editor_{DataFileLocation::FromPath(store_.Path()), passwords_, questions_,
                        [](Connection&) { return true; }, store_.platform.Get()};
};

TEST_F(RestoreWindow, ShowsWhatChangesBeforeItIsDecided) {
  SetToday(2026, 11, 20, 18, 30);
  backup_.Make(File(), {});
  store_.Db().Execute("Delete from tblTransactions");
  FrmRestore form(editor_, {store_.platform.Get(), writer_, nullptr});
  Show(form);
  auto& backups = Find<ucEntryList>(form, "lvBackups");
  auto& changes = Find<ucEntryList>(form, "lvChanges");
  EXPECT_EQ(Cells(backups, 0).mid(0, 2), (QStringList{"20/11/2026 18:30", "Corvanta.dat"}));
  EXPECT_FALSE(Find<QPushButton>(form, "cmdAccept").isEnabled());
  EXPECT_EQ(changes.RowCount(), 0);
  backups.setFocus();
  QTest::keyClick(&backups, Qt::Key_Home);
  ASSERT_EQ(changes.RowCount(), 1);
  const QStringList cells = Cells(changes, 0);
  EXPECT_EQ(cells.at(2), "0");
  EXPECT_EQ(cells.at(5), "314.49");
  EXPECT_EQ(cells.at(1), cells.at(3) + " back");
  auto& prompts = store_.platform.prompts;
  prompts.ExpectAsk("Restore", ScriptedPrompts::kAnyText, false);
  Click(form, "cmdAccept");
  EXPECT_FALSE(form.Decided().has_value());
  EXPECT_TRUE(form.isVisible());
  prompts.ExpectAsk("Restore", ScriptedPrompts::kAnyText, true);
  Click(form, "cmdAccept");
  ASSERT_TRUE(form.Decided().has_value());
  EXPECT_EQ(form.Decided()->path, store_.platform.folder.Path("data/Backup/Corvanta.dat"));
}

TEST_F(RestoreWindow, AFileThatIsNoneIsToldAndNothingCanBeRestored) {
  const std::string letter = store_.platform.folder.Write("letter.dat", "Dear bank");
  FrmRestore form(editor_, {store_.platform.Get(), writer_, nullptr});
  Show(form);
  EXPECT_EQ(NoteOf(form), "No backup of this data file was found. Choose one elsewhere.");
  auto& prompts = store_.platform.prompts;
  prompts.ExpectOpenFile("Select File to Restore", letter);
  prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Click(form, "cmdBrowse");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdAccept").isEnabled());
  prompts.ExpectOpenFile("Select File to Restore", store_.Path());
  prompts.ExpectTell("Restore", "This is the data file itself. Select a Backup of it.");
  Click(form, "cmdBrowse");
}

TEST_F(RestoreWindow, TheArchiveFollowsItsFields) {
  SetToday(2026, 12, 31);
  clsCorvanta ledger(store_.Db(), store_.platform.Get());
  FrmArchive form(ledger, File(), {store_.platform.Get(), writer_, nullptr});
  Show(form);
  EXPECT_EQ(form.windowTitle(), "Archive");
  auto& accounts = Find<QAbstractItemView>(form, "lvAccounts");
  EXPECT_EQ(Cells(accounts, 0).at(1), "0") << "of before the year";
  Type(form, "dtBefore", "31/12/2026");
  accounts.setFocus();
  EXPECT_NE(Cells(accounts, 0).at(1), "0");
  const QString rows = Cells(accounts, 0).at(1);
  QTest::keyClick(&accounts, Qt::Key_Home);
  QTest::keyClick(&accounts, Qt::Key_Space);
  EXPECT_EQ(Cells(accounts, 0).at(1), "") << "taken out";
  auto& prompts = store_.platform.prompts;
  prompts.ExpectTell("Archive", "You need to select an Account");
  Click(form, "cmdAccept");
  QTest::keyClick(&accounts, Qt::Key_Space);
  EXPECT_EQ(Cells(accounts, 0).at(1), rows);
  Type(form, "txtArchive", "Mine.dat");
  prompts.ExpectTell(
      "Archive", "You need to enter the whole path of the archive file, or select it with Browse");
  Click(form, "cmdAccept");
  EXPECT_EQ(FocusOf(form), "txtArchive");
  const std::string path = store_.platform.folder.Path("data/Mine.dat");
  Type(form, "txtArchive", QString::fromStdString(path));
  prompts.ExpectAsk("Archive", ScriptedPrompts::kAnyText, true);
  prompts.ExpectTell("Archive", ScriptedPrompts::kAnyText);
  Click(form, "cmdAccept");
  EXPECT_TRUE(form.IsChanged());
  EXPECT_TRUE(FileExists(path));
}

}  // namespace
}  // namespace corvanta
