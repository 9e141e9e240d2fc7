// Every option is changed in the dialog, by its widgets, and is seen to act in the window.
#include "app/options/OptionsTest.h"
#include "app/register/RegisterModel.h"
#include "controls/ucCalendar.h"
#include "notes/AttachmentEditor.h"
#include "platform/Files.h"

#include <QDateEdit>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

#include <array>

namespace corvanta {
namespace {

using OptionsEffect = OptionsWindow;

TEST_F(OptionsEffect, ColoursOfRowsAreThoseOfEveryList) {
  Start();
  Pick("cmdAlt1", QColor(250, 220, 200));
  Pick("cmdAlt2", QColor(200, 220, 250));
  EXPECT_EQ(Setting("Alt1"), std::to_string(250 + 256 * 220 + 65536 * 200));
  EXPECT_EQ(RowColour(Register(), 0), QColor(250, 220, 200));
  EXPECT_EQ(RowColour(Register(), 1), QColor(200, 220, 250));
  Trigger("mnuViewPayees");
  auto& payees = WindowTest::Find<SortedTable>("lvpayee");
  QApplication::processEvents();
  EXPECT_EQ(RowColour(payees, 0), QColor(250, 220, 200));
  EXPECT_EQ(RowColour(payees, 1), QColor(200, 220, 250));
  Tick("chkLedger");
  EXPECT_EQ(RowColour(payees, 0), RowColour(payees, 1));
  Trigger("mnuViewRegister");
  EXPECT_EQ(RowColour(Register(), 0), RowColour(Register(), 1));
  Tick("chkLedger");
  EXPECT_NE(RowColour(Register(), 0), RowColour(Register(), 1));
  Pick("cmdAlt1", Qt::black);
  EXPECT_EQ(Setting("Alt1"), "16383743") << "black stands for the default";
}

TEST_F(OptionsEffect, LinesStandBelowRowsWhereTheyAreWanted) {
  Start();
  Trigger("mnuViewPayees");
  auto& payees = WindowTest::Find<SortedTable>("lvpayee");
  EXPECT_EQ(RowColour(payees, 0, true), RowColour(payees, 0));
  Tick("chkGrids");
  EXPECT_NE(RowColour(payees, 0, true), RowColour(payees, 0));
  Trigger("mnuViewRegister");
  EXPECT_NE(RowColour(Register(), 0, true), RowColour(Register(), 0));
}

TEST_F(OptionsEffect, TextHasTheColourOfItsStatus) {
  Start();
  EXPECT_EQ(Tinted(&QColor::green), 0);
  Pick("cmdFUcleared", QColor(0, 110, 0));
  EXPECT_GT(Tinted(&QColor::green), 0);
  EXPECT_EQ(Tinted(&QColor::blue), 0);
  Run("UPDATE tblTransactions SET BankChk = 1");
  Pick("cmdFcleared", QColor(0, 0, 200));
  EXPECT_GT(Tinted(&QColor::blue), 0);
  EXPECT_EQ(Tinted(&QColor::green), 0);
}

TEST_F(OptionsEffect, ColumnsOfTheRegisterComeAndGo) {
  Start();
  const std::array<std::pair<const char*, int>, 3> columns{
      {{"chkDescription", RegisterModel::kDescription},
       {"chkRef", RegisterModel::kRef},
       {"chkStatus", RegisterModel::kStatus}}};
  for (const auto& [tick, column] : columns) {
    ASSERT_FALSE(Register().isColumnHidden(column)) << tick;
    Tick(tick);
    EXPECT_TRUE(Register().isColumnHidden(column)) << tick;
  }
  EXPECT_FALSE(WindowTest::Find<QAction>("mnuViewStatus").isChecked());
}

TEST_F(OptionsEffect, NewTransactionsBeginWithTheStatus) {
  Start();
  Change([](QDialog& dialog) { Find<QRadioButton>(dialog, "opPayment1").click(); });
  EXPECT_EQ(Setting("Payment"), "Cleared");
  InNextDialog(
      [](QDialog& entry) { EXPECT_TRUE(Find<QRadioButton>(entry, "opPayment1").isChecked()); });
  Trigger("mnuTransAdd");
}

TEST_F(OptionsEffect, ARightClickFillsInOrNot) {
  OpenPurse();
  ShowWindow();
  window_->Show({kTransactionShow, 1});
  EXPECT_EQ(RightClicked(), "FrmAccountAuto");
  Tick("chkAutofil");
  EXPECT_EQ(RightClicked(), "FrmAccountTrans");
}

TEST_F(OptionsEffect, TheTreeShowsWhatIsWanted) {
  Start();
  EXPECT_FALSE(TreeText().contains(QStringLiteral("12345678")));
  Tick("chkAccountNo");
  EXPECT_TRUE(TreeText().contains(QStringLiteral("(12345678)")));
  EXPECT_FALSE(TreeText().contains(QStringLiteral("Old")));
  Tick("chkClosed");
  EXPECT_TRUE(TreeText().contains(QStringLiteral("Old [Closed]")));
  Run("UPDATE tblTransactions SET Shares = 10, Price = 5, Action = 1, PayeeID = 12 WHERE "
      "TransactionID = 1");
  Trigger("mnuViewRefresh");
  const QString money = TreeText();
  Tick("chkInvestment");
  EXPECT_NE(TreeText(), money);
  EXPECT_TRUE(WindowTest::Find<ucCalendar>("ucCalendar").isVisible());
  Tick("chkCalendar");
  EXPECT_FALSE(WindowTest::Find<ucCalendar>("ucCalendar").isVisible());
}

TEST_F(OptionsEffect, PricesHaveTheDecimals) {
  Start();
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (12,#11/20/2026#,123.456789)");
  Trigger("mnuViewInvestments");
  auto& list = WindowTest::Find<SortedTable>("lvinvest");
  const auto prices = [&list] {
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
      texts.append(list.model()->index(row, 5).data().toString());
    }
    return texts;
  };
  EXPECT_TRUE(prices().contains(QStringLiteral("123.4568")));
  const int width = list.columnWidth(5);
  Change([](QDialog& dialog) { Choose(dialog, "cmbInvestmentDecimal", QStringLiteral("9")); });
  EXPECT_TRUE(prices().contains(QStringLiteral("123.456789000")));
  EXPECT_GT(list.columnWidth(5), width) << "none is cut off";
}

TEST_F(OptionsEffect, SchedulesArePostedAheadAndMoveTheirDate) {
  Start();
  Run("DELETE FROM tblSchedule");
  AddRent(*Date::FromIso("2026-12-01"), -100, AddToAccount::Ahead);
  Change([](QDialog& dialog) { Choose(dialog, "cmbScheduled", QStringLiteral("None")); });
  constexpr const char* kPosted = "SELECT COUNT(*) FROM tblTransactions WHERE BankSch > 0";
  const std::int64_t before = Count(kPosted);
  Change([](QDialog& dialog) { Choose(dialog, "cmbScheduled", QStringLiteral("3 Months")); });
  EXPECT_EQ(Count(kPosted), before + 3);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblSchedule WHERE DateFrom = #12/01/2026#"), 1);
  constexpr const char* kAdvice =
      "Update Schedule Date is checked - we suggest this is unchecked during forecasting.";
  Change([&](QDialog& dialog) {
    machine_.prompts.ExpectTell("Options Selection", kAdvice);
    Find<QCheckBox>(dialog, "chkUpdateScheduleDate").click();
    machine_.prompts.ExpectTell("Options Selection", kAdvice);
    Choose(dialog, "cmbScheduled", QStringLiteral("4 Months"));
    EXPECT_TRUE(machine_.prompts.AllMet());
  });
  EXPECT_EQ(Count(kPosted), before + 4);
  EXPECT_EQ(Count("SELECT COUNT(*) FROM tblSchedule WHERE DateFrom = #12/01/2026#"), 0);
}

TEST_F(OptionsEffect, RemindersLookAsFarAsTheyAreAskedTo) {
  Start();
  Run("DELETE FROM tblSchedule");
  AddRent(*Date::FromIso("2026-12-15"), -100, AddToAccount::No);
  AddRent(*Date::FromIso("2026-11-10"), -50, AddToAccount::No);
  Trigger("mnuViewRefresh");
  const QString near = ReminderText();
  EXPECT_TRUE(near.contains(QStringLiteral("Overdue Items")));
  EXPECT_FALSE(near.contains(QStringLiteral("Future Items")));
  Change([](QDialog& dialog) { Choose(dialog, "cmbReminders", QStringLiteral("4 Weeks")); });
  EXPECT_TRUE(ReminderText().contains(QStringLiteral("Future Items")));
  Tick("chkOverDue");
  EXPECT_FALSE(ReminderText().contains(QStringLiteral("Overdue Items")));
}

TEST_F(OptionsEffect, FilesOfBanksAndAttachmentsHaveTheirPlace) {
  Start();
  Tick("chkAssociate");
  EXPECT_EQ(machine_.opener.Associated().size(), 2U);
  EXPECT_TRUE(FolderExists(DataFolder() + "/FileStore")) << "kept by default";
  const std::string path = machine_.folder.Path("backup.dat");
  Change([&](QDialog& dialog) {
    machine_.prompts.ExpectSaveFile("Save Backup File As", DataFilePath());
    machine_.prompts.ExpectTell(
        "Options Selection",
        "The selected backup file is the same as your data file. Please reselect");
    Click(dialog, "cmdBrowse");
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtBackup").text(), "");
    machine_.prompts.ExpectSaveFile("Save Backup File As", path);
    Click(dialog, "cmdBrowse");
    EXPECT_EQ(Setting("Backup"), path) << "at once";
    Find<QCheckBox>(dialog, "chkSkipBackup").click();
    Find<QCheckBox>(dialog, "chkBackupstore").click();
    Find<QCheckBox>(dialog, "chkLocalstore").click();
    Choose(dialog, "cmbBackup", QStringLiteral("Every Time"));
  });
  EXPECT_EQ(Setting("SkipBackup") + Setting("BackupFS") + Setting("LocalFS"), "100");
  EXPECT_EQ(Setting("BFreq"), "Every Time");
}

TEST_F(OptionsEffect, LeavingBacksUpAsItIsAskedTo) {
  Start();
  const std::string path = machine_.folder.Path("backup.dat");
  const std::string store = machine_.folder.Path("FileStore/letter.txt");
  Change([&](QDialog& dialog) {
    Find<QLineEdit>(dialog, "txtBackup").setText(QString::fromStdString(path));
    Find<QCheckBox>(dialog, "chkSkipBackup").click();
    Choose(dialog, "cmbBackup", QStringLiteral("Every Time"));
  });
  SystemFiles().WriteNew(DataFolder() + "/FileStore/letter.txt", "Dear bank");
  window_->close();
  EXPECT_FALSE(FileExists(path)) << "skipped";
  window_->show();
  Tick("chkSkipBackup");
  Tick("chkBackupstore");
  window_->close();
  EXPECT_TRUE(FileExists(path));
  EXPECT_FALSE(FileExists(store));
  window_->show();
  Tick("chkBackupstore");
  window_->close();
  EXPECT_TRUE(FileExists(store));
}

TEST_F(OptionsEffect, AttachedFilesAreKeptWhereTheyAreWanted) {
  Start();
  AttachmentEditor editor(session_.Ledger(), machine_.Get(), 1);
  EXPECT_EQ(editor.Keeping(), AttachmentMode::Folder);
  Tick("chkLocalstore");
  EXPECT_EQ(editor.Keeping(), AttachmentMode::Path);
  Tick("chkAttachInside");
  EXPECT_EQ(editor.Keeping(), AttachmentMode::Inside);
}

TEST_F(OptionsEffect, ResettingGivesColumnsDaysAndSortingBackAtOnce) {
  Start();
  Register().horizontalHeader()->resizeSection(RegisterModel::kPayee, 300);
  Register().ChooseColumn(RegisterModel::kCategory);
  ASSERT_NE(Register().Widths(), QString());
  InNextDialog([this](QDialog& dialog) {
    machine_.prompts.ExpectTell("Options Selection", "All column widths have now been reset.");
    Click(dialog, "cmdReset");
    Click(dialog, "cmdCancel");
  });
  Trigger("mnuFileOptions");
  EXPECT_EQ(Register().Widths(), QString());
  EXPECT_EQ(Register().Sorted(), (SortState{RegisterModel::kDate, false}));
  EXPECT_TRUE(Register().horizontalHeader()->isSortIndicatorShown());
  EXPECT_EQ(Register().horizontalHeader()->sortIndicatorSection(), RegisterModel::kDate);
  window_->close();
  EXPECT_EQ(Setting("chT"), "") << "leaving does not bring them back";
  EXPECT_EQ(Setting("ColNo"), std::to_string(RegisterModel::kDate + 1));
  EXPECT_EQ(Setting("ColSort"), "0");
}

TEST_F(OptionsEffect, WhatIsTypedIsDroppedOrDefaultedAndSearched) {
  Start();
  InNextDialog([this](QDialog& dialog) {
    auto& find = Find<QLineEdit>(dialog, "txtFind");
    EXPECT_EQ(FocusOf(dialog), "txtFind");
    QTest::keyClicks(&find, QStringLiteral("schedule"));
    EXPECT_TRUE(Find<QComboBox>(dialog, "cmbScheduled").isVisible());
    EXPECT_FALSE(Find<QCheckBox>(dialog, "chkGrids").isVisible());
    QTest::keyClick(&find, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkGrids").isVisible());
    QTest::keyClicks(&find, QStringLiteral("xyzzy"));
    EXPECT_TRUE(Find<QLabel>(dialog, "lblNothing").isVisible());
    find.clear();
    auto& sections = Find<QListWidget>(dialog, "lvSections");
    sections.setFocus();
    QTest::keyClick(&sections, Qt::Key_End);
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkAssociate").isVisible());
    Find<QCheckBox>(dialog, "chkAssociate").click();
    Find<QCheckBox>(dialog, "chkGrids").click();
    machine_.prompts.ExpectTell("Options Selection", "Default settings have now been applied.");
    Click(dialog, "cmdDefaults");
    EXPECT_FALSE(Find<QCheckBox>(dialog, "chkGrids").isChecked());
    Find<QCheckBox>(dialog, "chkGrids").click();
    // The backup file that cannot be is shown, wherever the person is.
    Find<QLineEdit>(dialog, "txtBackup").setText(QStringLiteral("backup.dat"));
    machine_.prompts.ExpectTell("Options Selection", ScriptedPrompts::kAnyText);
    Click(dialog, "cmdAccept");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(FocusOf(dialog), "txtBackup");
    EXPECT_TRUE(Find<QLineEdit>(dialog, "txtBackup").isVisible());
    machine_.prompts.ExpectAsk("Options", ScriptedPrompts::kAnyText, true);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Trigger("mnuFileOptions");
  EXPECT_EQ(Setting("Grid"), "(none)");
}

TEST_F(OptionsEffect, TheDaysOfReturnsAreThoseOfTheRegisterAndKept) {
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Dates", "2026-03-01#2026-03-31");
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "SetReportDate", "1");
  Start();
  auto& tick = WindowTest::Find<QCheckBox>("chkUnsetR");
  EXPECT_TRUE(tick.isChecked());
  EXPECT_EQ(WindowTest::Find<QDateEdit>("holdings_dtpFrom").date(), QDate(2026, 3, 1));
  tick.click();
  window_->close();
  EXPECT_EQ(Setting("SetReportDate"), "0");
}

}  // namespace
}  // namespace corvanta
