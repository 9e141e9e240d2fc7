#include "app/FrmMain.h"
#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/tree/AccountTree.h"
#include "controls/ListTable.h"
#include "controls/ucCalendar.h"
#include "support/DragMouse.h"

#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>

namespace corvanta {
namespace {

class MainWindow : public WindowTest {
 protected:
  [[nodiscard]] std::string Cell(int row, int column) {
    const QAbstractItemModel* model = Find<ListTable>("lvbank").model();
    return model->index(row, column).data().toString().toStdString();
  }
  // The labels of the view in front.
  [[nodiscard]] std::string Label(const char* name) {
    for (const QLabel* label : window_->findChildren<QLabel*>(QLatin1String(name))) {
      if (label->isVisible()) return label->text().toStdString();
    }
    return "(hidden)";
  }
  // Whole, however narrow the view is.
  [[nodiscard]] std::string Title() {
    for (const QLabel* label : window_->findChildren<QLabel*>(QStringLiteral("lblTitle"))) {
      if (label->isVisible()) return label->toolTip().toStdString();
    }
    return "(hidden)";
  }
};

TEST_F(MainWindow, ShowsTheSampleAccountAndItsRegister) {
  OpenData();
  ShowWindow();
  const auto& tree = Find<QTreeWidget>("tvAccounts");
  ASSERT_EQ(tree.topLevelItemCount(), 1);
  EXPECT_EQ(tree.topLevelItem(0)->text(0), "Bank Accounts");
  EXPECT_EQ(tree.topLevelItem(0)->child(0)->text(0), "Sample Bank Account");
  EXPECT_EQ(tree.topLevelItem(0)->child(0)->text(1), "314.49") << "as in the register";
  EXPECT_EQ(tree.topLevelItem(0)->child(1)->text(0), "Total (GBP)");
  EXPECT_EQ(tree.currentItem()->text(0), "Sample Bank Account");

  auto& table = Find<ListTable>("lvbank");
  ASSERT_EQ(table.model()->rowCount(), 13);
  EXPECT_EQ(Cell(0, RegisterModel::kPayee), "Acme Company");
  EXPECT_EQ(Cell(0, RegisterModel::kPaidIn), "900.00");
  EXPECT_EQ(Cell(0, RegisterModel::kPaidOut), "");
  EXPECT_EQ(Cell(0, RegisterModel::kBalance), "1,400.00");
  EXPECT_EQ(Cell(12, RegisterModel::kPaidOut), "-316.00");
  EXPECT_EQ(Cell(12, RegisterModel::kBalance), "314.49");
  EXPECT_EQ(Title(), "Sample Bank Account");
  EXPECT_EQ(Label("lblRows"), "13 transactions");
  EXPECT_EQ(Label("lblBalance"), "Balance: 314.49");
  EXPECT_EQ(Find<QLabel>("lblFile").toolTip().toStdString(), DataFilePath());
}

TEST_F(MainWindow, TheTreeCountsInvestmentsWhereTheSettingSaysSo) {
  OpenData();
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Investment", "1");
  ShowWindow();
  EXPECT_EQ(Find<QTreeWidget>("tvAccounts").topLevelItem(0)->child(0)->text(1), "632.49");
}

TEST_F(MainWindow, ColumnsHaveTheirNamesAndFollowTheSettings) {
  OpenData();
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "ShowRef", "0");
  ShowWindow();
  window_->resize(1700, 600);
  QApplication::processEvents();
  auto& table = Find<ListTable>("lvbank");
  QStringList names;
  for (int column = 0; column < table.model()->columnCount(); ++column) {
    names.append(table.model()->headerData(column, Qt::Horizontal).toString());
  }
  EXPECT_EQ(names.join(u'|'),
            "Date|Payee|Category|Payment|Ref|Description|Status|Paid Out|Paid In|Balance");
  EXPECT_TRUE(table.isColumnHidden(RegisterModel::kRef));
  EXPECT_FALSE(table.isColumnHidden(RegisterModel::kDescription));
  EXPECT_FALSE(Find<QAction>("mnuViewReference").isChecked());
  Trigger("mnuViewDescription");
  Trigger("mnuViewReference");
  EXPECT_TRUE(table.isColumnHidden(RegisterModel::kDescription));
  EXPECT_FALSE(table.isColumnHidden(RegisterModel::kRef));
  EXPECT_EQ(Setting("ShowDesc"), "0");
  EXPECT_EQ(Setting("ShowRef"), "1");
  EXPECT_EQ(Setting("ShowStatus"), "1");
}

TEST_F(MainWindow, GoesFromViewToViewAndBack) {
  OpenData();
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Purse',2,17,-5,0)");
  ShowWindow();
  Trigger("mnuViewAccounts");
  EXPECT_EQ(window_->Shown().name, kAccountShow);
  EXPECT_EQ(Title(), "Accounts");
  EXPECT_EQ(Label("lblBalance"), "Total (GBP): 309.49");
  EXPECT_TRUE(Find<QAction>("mnuViewAccounts").isChecked());
  auto& accounts = Find<ListTable>("lvbalance");
  accounts.setFocus();
  QTest::keyClick(&accounts, Qt::Key_End);
  QTest::keyClick(&accounts, Qt::Key_Return);
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 2}));
  EXPECT_EQ(Title(), "Purse");
  Trigger("mnuViewBack");
  Trigger("mnuViewBack");
  EXPECT_EQ(Title(), "Sample Bank Account");
  EXPECT_FALSE(Find<QAction>("mnuViewBack").isEnabled());
  Trigger("mnuViewForward");
  EXPECT_EQ(window_->Shown().name, kAccountShow);
}

TEST_F(MainWindow, ADayOfTheCalendarChoosesItsRows) {
  OpenData();
  ShowWindow();
  auto& calendar = Find<ucCalendar>("ucCalendar");
  auto& table = Find<ListTable>("lvbank");
  const Date day = machine_.clock.Today().AddDays(-10);
  const QDate wanted(day.Year(), day.Month(), day.Day());
  calendar.SetSelected(wanted);
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.DayRect(wanted).center());
  const QModelIndexList chosen = table.selectionModel()->selectedRows();
  ASSERT_EQ(chosen.size(), 1);
  EXPECT_EQ(Cell(chosen[0].row(), RegisterModel::kPayee), "Gas R US");
  QTest::keyClick(&calendar, Qt::Key_Home);
  EXPECT_EQ(table.selectionModel()->selectedRows().size(), 3) << "today's";
}

TEST_F(MainWindow, RefreshShowsWhatAnotherProgramWrote) {
  OpenData();
  ShowWindow();
  Run("UPDATE tblTransactions SET [Amount] = -400 WHERE TransactionID = 38");
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Cell(12, RegisterModel::kBalance), "230.49");
  EXPECT_EQ(Label("lblBalance"), "Balance: 230.49");
  EXPECT_EQ(Find<QTreeWidget>("tvAccounts").topLevelItem(0)->child(0)->text(1), "230.49");
}

TEST_F(MainWindow, EmptyViewsSayWhatToDo) {
  OpenData(true);
  ShowWindow();
  EXPECT_EQ(window_->Shown().name, kAccountShow);
  EXPECT_FALSE(Find<ListTable>("lvbalance").isVisible());
  const auto buttons = window_->findChildren<QPushButton*>(QStringLiteral("cmdEmptyState"));
  ASSERT_TRUE(std::any_of(buttons.begin(), buttons.end(),
                          [](const QPushButton* button) { return button->isVisible(); }));
  EXPECT_FALSE(Find<QWidget>("pnlReminders").isVisible()) << "folded";
  Trigger("mnuViewReminders");
  EXPECT_TRUE(Find<QLabel>("lblNoReminders").isVisible());
}

TEST_F(MainWindow, IsFoundAgainAsItWasLeft) {
  OpenData();
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Purse',2,17,5,0)");
  ShowWindow();
  window_->setGeometry(30, 20, 760, 590);
  window_->Show({kTransactionShow, 2});
  Find<ListTable>("lvbank").horizontalHeader()->resizeSection(RegisterModel::kPayee, 122);
  DragMouse(*Find<QSplitter>("spColumns").handle(1), {0, 50}, {-40, 50});
  const QList<int> columns = Find<QSplitter>("spColumns").sizes();
  window_->close();
  EXPECT_EQ(Setting("Width"), "760");
  EXPECT_EQ(Setting("Height"), "590");
  EXPECT_EQ(Setting("Account"), "2");
  EXPECT_EQ(Setting("View"), "TransactionShow");
  EXPECT_EQ(QString::fromStdString(Setting("chT")).split(u'|').value(1), "122");

  ShowWindow();
  EXPECT_EQ(window_->geometry(), QRect(30, 20, 760, 590));
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 2}));
  EXPECT_EQ(Find<ListTable>("lvbank").Widths().split(u'|').value(1), "122");
  EXPECT_EQ(Find<QSplitter>("spColumns").sizes(), columns);
}

TEST_F(MainWindow, TheAccountsHaveRoomForTheirNamesUntilTheEdgeIsMoved) {
  OpenPurse();
  ShowWindow();
  window_->resize(1366, 740);
  QCoreApplication::processEvents();
  const auto left = [this] { return Find<QSplitter>("spColumns").sizes().front(); };
  const int narrow = left();
  Run("UPDATE tblAccounts SET [Account] = 'Savings for the Holidays by the Sea'");
  window_->Reload();
  QCoreApplication::processEvents();
  EXPECT_GT(left(), narrow);
  EXPECT_GE(left(), Find<AccountTree>("tvAccounts").WantedWidth());
  Run("UPDATE tblAccounts SET [Account] = '" + std::string(100, 'M') + "'");
  window_->Reload();
  QCoreApplication::processEvents();
  EXPECT_LT(left(), 1366 / 3) << "the view keeps its own";
  DragMouse(*Find<QSplitter>("spColumns").handle(1), {0, 50}, {-90, 50});
  const int own = left();
  window_->Reload();
  window_->resize(1400, 740);
  QCoreApplication::processEvents();
  EXPECT_EQ(left(), own);
}

TEST_F(MainWindow, SettingsThatMakeNoSenseDoNotKeepItFromStarting) {
  OpenData();
  for (const auto& [name, value] : std::map<std::string, std::string>{{"Width", "-3"},
                                                                      {"Height", "x"},
                                                                      {"Left", "90000"},
                                                                      {"Top", "-90000"},
                                                                      {"WindowColumns", "1|2|3|4"},
                                                                      {"chT", "a|b"},
                                                                      {"Account", "77"},
                                                                      {"View", "?"},
                                                                      {"Fcleared", "red"},
                                                                      {"Maximised", "perhaps"}}) {
    machine_.registry.Write(Hive::CurrentUser, kSettingsKey, name, value);
  }
  ShowWindow();
  const QRect screen = window_->screen()->availableGeometry();
  EXPECT_EQ(window_->geometry().united(screen), screen);
  EXPECT_EQ(Find<ListTable>("lvbank").model()->columnCount(), 10);
}

TEST_F(MainWindow, LeavingNeverFails) {
  OpenData();
  ShowWindow();
  machine_.registry.RefuseWrites(true);
  machine_.prompts.ExpectTell("Corvanta Personal Finance", ScriptedPrompts::kAnyText);
  EXPECT_TRUE(window_->close());
}

TEST_F(MainWindow, EveryMenuEntryAndControlCanBeReachedByKeyAndName) {
  OpenData();
  ShowWindow();
  for (QAction* top : window_->menuBar()->actions()) {
    QStringList mnemonics;
    for (const QAction* entry : top->menu()->actions()) {
      if (entry->isSeparator()) continue;
      EXPECT_FALSE(entry->objectName().isEmpty());
      const qsizetype mark = entry->text().indexOf(u'&');
      ASSERT_GE(mark, 0) << entry->text().toStdString();
      mnemonics.append(entry->text().mid(mark + 1, 1).toLower());
    }
    EXPECT_EQ(mnemonics.removeDuplicates(), 0) << top->text().toStdString();
  }
  for (const char* name : {"tvAccounts", "ucCalendar", "lvbank", "lvbalance", "ucRibbon"}) {
    EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
  }
}

}  // namespace
}  // namespace corvanta
