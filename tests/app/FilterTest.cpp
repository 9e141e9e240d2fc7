// Filters in the window: the dialogs as a person works them, what they do to the views, and the way
// back.
#include "app/ViewCommand.h"
#include "app/WindowTest.h"
#include "app/filter/FilterChip.h"
#include "app/filter/FilterStrip.h"
#include "app/filter/FrmFilter.h"
#include "app/filter/PeriodBar.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/EmptyState.h"
#include "controls/SortedTable.h"
#include "ledger/register/FilterChoice.h"
#include "platform/Files.h"
#include "support/DialogTest.h"
#include "support/ScriptedPrompts.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QTreeWidget>

namespace corvanta {
namespace {

class FilterInWindow : public DialogTest<WindowTest> {
 protected:
  // Two accounts in pounds and one in another currency, with a few rows each.
  void Start() {
    OpenPurse();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Bank',2,17,1000,0)");
    for (const char* payee : {"Baker", "Butcher", "Chandler"}) {
      Run(std::string("INSERT INTO tblPayees (Payee,Investment) VALUES ('") + payee + "',0)");
    }
    baker_ = KeyOf("Baker");
    AddRow(1, "01/02/2026", -5, "Baker", "bread");
    AddRow(1, "01/03/2026", -7, "Butcher", "ham");
    AddRow(2, "01/03/2026", -9, "Baker", "cake");
    AddRow(1, "11/20/2026", 20, "Chandler", "refund");
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    BringForward();
  }
  std::int64_t KeyOf(const std::string& payee) {
    return session_.Ledger()
        .Store()
        .QueryValue("Select PayeeID from tblPayees Where Payee = '" + payee + "'")
        .Int();
  }
  void AddRow(int account, const std::string& day, double amount, const std::string& payee,
              const std::string& text) {
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,[Amount],[Date],"
        "Description) VALUES (" +
        std::to_string(account) + ",9,1," + std::to_string(KeyOf(payee)) + "," +
        std::to_string(amount) + ",#" + day + "#,'" + text + "')");
  }
  template <typename Widget>
  Widget& Get(const char* name) {
    return WindowTest::Find<Widget>(name);
  }
  RegisterView& View() { return *window_->findChild<RegisterView*>(); }
  SortedTable& Table() { return View().Table(); }
  // One column of all rows, separated by blanks.
  QString Column(int column) {
    QStringList cells;
    for (int row = 0; row < Table().model()->rowCount(); ++row) {
      cells.append(Table().model()->index(row, column).data().toString());
    }
    return cells.join(u' ');
  }
  QString Texts() { return Column(RegisterModel::kDescription); }
  FilterStrip& Strip() { return View().Strip(); }
  FilterChip& Chip(const char* name) {
    return *Strip().findChild<FilterChip*>(QLatin1String(name));
  }
  QString TagOf(const char* label) { return Get<QLabel>(label).property("tag").toString(); }
  static QTreeWidgetItem* ItemOf(QDialog& dialog, const QString& text) {
    auto& list = Find<QTreeWidget>(dialog, "lvFilter");
    const auto found = list.findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.constFirst();
  }
  // Opens the filter by its menu entry and ticks these.
  void FilterBy(const char* action, const QStringList& items) {
    InNextDialog([items](QDialog& dialog) {
      for (const QString& item : items) {
        QTreeWidgetItem* line = ItemOf(dialog, item);
        ASSERT_NE(line, nullptr) << item.toStdString();
        line->setCheckState(0, Qt::Checked);
      }
      Click(dialog, "cmdAccept");
    });
    Trigger(action);
  }

  std::int64_t baker_ = 0;
};

TEST_F(FilterInWindow, AListShowsItsRowsWithTheAccountsBalanceAndSaysSo) {
  Start();
  EXPECT_FALSE(Strip().isVisible());
  EXPECT_EQ(TagOf("lblPayeeFilter"), "No");
  EXPECT_EQ(Get<QLabel>("lblPayeeFilter").text(), "Show All");
  EXPECT_FALSE(Get<QPushButton>("cmdNoFilter").isEnabled());
  FilterBy("mnuFilterPayee", {"Butcher", "Chandler"});
  EXPECT_EQ(Texts(), "ham refund");
  EXPECT_EQ(Column(RegisterModel::kBalance), "88.00 108.00");
  EXPECT_EQ(TagOf("lblPayeeFilter"), "Yes");
  EXPECT_EQ(Get<QLabel>("lblPayeeFilter").text(), "Butcher, Chandler");
  EXPECT_TRUE(Get<QPushButton>("cmdNoFilter").isEnabled());
  EXPECT_TRUE(Chip("pcePayee").isVisible());
  EXPECT_EQ(Chip("pcePayee").text(), "Payees: Butcher, Chandler");
  EXPECT_FALSE(Chip("pceAccount").isVisible());
  EXPECT_EQ(View().findChild<QLabel*>("lblThisPeriod")->text(), "These Rows: 13.00");
  EXPECT_EQ(View().findChild<QLabel*>("lblBalance")->text(), "Balance: 108.00");
  EXPECT_TRUE(View().findChild<QLabel*>("lblRows")->parentWidget()->toolTip().contains(
      "2 of 3 transactions"));
  // Taking the last tick away shows everything.
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Filter By Payees");
    EXPECT_EQ(Find<QLabel>(dialog, "lblChosen").text(), "2 of 3 ticked");
    Click(dialog, "cmdDSelect");
    Click(dialog, "cmdAccept");
  });
  Get<QPushButton>("cmdPayeeFilter").click();
  EXPECT_EQ(Texts(), "bread ham refund");
  EXPECT_EQ(TagOf("lblPayeeFilter"), "No");
  EXPECT_EQ(Get<QLabel>("lblPayeeFilter").text(), "Show All");
  EXPECT_FALSE(Get<QPushButton>("cmdNoFilter").isEnabled());
  EXPECT_FALSE(Strip().isVisible());
}

TEST_F(FilterInWindow, ADialogThatIsLeftChangesNothing) {
  Start();
  InNextDialog([](QDialog& dialog) {
    ItemOf(dialog, "Baker")->setCheckState(0, Qt::Checked);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Trigger("mnuFilterPayee");
  EXPECT_EQ(Texts(), "bread ham refund");
  EXPECT_FALSE(window_->Shown().IsFiltered());
}

TEST_F(FilterInWindow, EachPieceHasItsOwnWayOutByKeys) {
  Start();
  FilterBy("mnuFilterPayee", {"Baker", "Butcher"});
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Search Text Filter");
    Type(dialog, "txtSearch", " HAM ");
    QTest::keyClick(&Find<QLineEdit>(dialog, "txtSearch"), Qt::Key_Return);
  });
  Trigger("mnuFilterText");
  EXPECT_EQ(Texts(), "ham");
  EXPECT_TRUE(Strip().findChild<QPushButton*>("cmdClearFilters")->isVisible());
  Chip("pcePayee").setFocus();
  QTest::keyClick(&Chip("pcePayee"), Qt::Key_Delete);
  EXPECT_FALSE(Chip("pcePayee").isVisible());
  EXPECT_EQ(Chip("pceText").text(), "Text: HAM");
  EXPECT_EQ(TagOf("lblTextFilter"), "Yes");
  EXPECT_EQ(Texts(), "ham");
  auto& remove = *Chip("pceText").findChild<QToolButton*>("cmdRemoveText");
  EXPECT_FALSE(remove.accessibleName().isEmpty());
  remove.setFocus();
  QTest::keyClick(&remove, Qt::Key_Space);
  EXPECT_EQ(Texts(), "bread ham refund");
  EXPECT_FALSE(Strip().isVisible());
  EXPECT_EQ(window_->focusWidget(), &Table());
  // A hidden status is a filter, too.
  Trigger("mnuViewUnCleared");
  EXPECT_EQ(Chip("pceStatus").text(), "Status: cleared, reconciled");
  EXPECT_EQ(Texts(), "");
  QTest::keyClick(&Chip("pceStatus"), Qt::Key_Delete);
  EXPECT_EQ(Texts(), "bread ham refund");
}

TEST_F(FilterInWindow, SeveralAccountsStandTogetherUntilOneIsGoneTo) {
  Start();
  EXPECT_EQ(Table().model()->columnCount(), 10);
  FilterBy("mnuFilterAccount", {"Purse", "Bank"});
  EXPECT_EQ(Texts(), "bread ham cake refund");
  EXPECT_EQ(Column(RegisterModel::kAccount), "Purse Purse Bank Purse");
  EXPECT_FALSE(Table().isColumnHidden(RegisterModel::kAccount));
  EXPECT_EQ(Table().horizontalHeader()->visualIndex(RegisterModel::kAccount), 1);
  EXPECT_EQ(View().Title(), "2 Accounts");
  EXPECT_EQ(View().findChild<QLabel*>("lblBalance")->text(), "Balance: 1,099.00");
  FilterBy("mnuFilterPayee", {"Baker"});
  EXPECT_EQ(Column(RegisterModel::kBalance), "95.00 991.00");
  auto& tree = Get<QTreeWidget>("tvAccounts");
  EXPECT_TRUE(tree.selectedItems().isEmpty());
  window_->OpenAccount(1);
  EXPECT_EQ(View().Title(), "Purse");
  EXPECT_EQ(Texts(), "bread") << "the other filter stays";
  EXPECT_EQ(Table().model()->columnCount(), 10);
  EXPECT_EQ(Table().horizontalHeader()->visualIndex(RegisterModel::kPayee), 1);
  // Widths set by hand are of the columns that there always are.
  Table().SetWidths(QStringLiteral("0|123|0|0|0|0|0|0|0|0"));
  FilterBy("mnuFilterAccount", {"Purse", "Bank"});
  Table().ChooseColumn(RegisterModel::kAccount);
  EXPECT_EQ(Column(RegisterModel::kAccount), "Bank Purse");
  EXPECT_EQ(View().Widths(), "0|123|0|0|0|0|0|0|0|0");
  window_->OpenAccount(2);
  EXPECT_EQ(Table().Sorted().column, RegisterModel::kDate);
  EXPECT_EQ(Table().Widths(), "0|123|0|0|0|0|0|0|0|0");
}

TEST_F(FilterInWindow, GoingBackShowsTheViewsExactlyAsTheyWere) {
  Start();
  FilterBy("mnuFilterPayee", {"Baker"});
  const ViewCommand filtered = window_->Shown();
  Get<QCheckBox>("chkUnset").click();
  const ViewCommand dated = window_->Shown();
  Trigger("mnuViewPayees");
  Trigger("mnuViewRegister");
  Trigger("mnuFilterNone");
  EXPECT_FALSE(Strip().isVisible());
  EXPECT_NE(window_->Shown(), dated);
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown(), dated);
  EXPECT_EQ(Chip("pcePayee").text(), "Payees: Baker");
  EXPECT_EQ(TagOf("lblPayeeFilter"), "Yes");
  EXPECT_TRUE(Get<QCheckBox>("chkUnset").isChecked());
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown().name, kPayeeShow);
  Trigger("mnuViewForward");
  Trigger("mnuViewForward");
  EXPECT_TRUE(window_->Shown().rows.IsEmpty());
  EXPECT_EQ(filtered.rows.List(FilterKind::Payee), std::to_string(baker_));
  // What is gone meanwhile is not filtered by any longer.
  Run("UPDATE tblTransactions SET PayeeID = 1");
  Run("DELETE FROM tblPayees WHERE PayeeID = " + std::to_string(baker_));
  Trigger("mnuViewBack");
  EXPECT_TRUE(window_->Shown().rows.IsEmpty());
  EXPECT_EQ(TagOf("lblPayeeFilter"), "No");
}

TEST_F(FilterInWindow, AFilterOfAnotherViewGoesToTheRegister) {
  Start();
  Trigger("mnuViewPayees");
  FilterBy("mnuFilterPayee", {"Baker"});
  EXPECT_EQ(window_->Shown().name, kTransactionShow);
  EXPECT_EQ(Texts(), "bread");
  // Where it leaves nothing, the list says why, and its button brings everything back.
  InNextDialog([](QDialog& dialog) {
    Type(dialog, "txtSearch", "'%_[no such text");
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuFilterText");
  auto& empty = *View().findChild<EmptyState*>();
  ASSERT_TRUE(empty.isVisible());
  QString text;
  for (const QLabel* label : empty.findChildren<QLabel*>()) text += label->text() + u'\n';
  EXPECT_TRUE(text.contains("All 3 transactions are hidden")) << text.toStdString();
  EXPECT_TRUE(text.contains("The filters above the list choose none of them."));
  Trigger("mnuViewAll");
  EXPECT_EQ(Texts(), "bread ham refund");
  EXPECT_FALSE(Strip().isVisible());
}

TEST_F(FilterInWindow, TheTwinOfATransferIsShownWhateverIsFiltered) {
  Start();
  FilterBy("mnuFilterPayee", {"Butcher"});
  window_->ShowTransaction(2, 3);
  EXPECT_EQ(View().FocusedKey(), 3);
  EXPECT_TRUE(window_->Shown().rows.IsEmpty());
}

TEST_F(FilterInWindow, InvestmentTransactionsKeepToTheFilter) {
  Start();
  Run("INSERT INTO tblPayees (Payee,Investment,CurrencyID) VALUES ('Fund',1,17)");
  Run("INSERT INTO tblPayees (Payee,Investment,CurrencyID) VALUES ('Bond',1,17)");
  AddRow(1, "02/01/2026", -50, "Fund", "some");
  AddRow(1, "02/02/2026", -60, "Bond", "more");
  Run("UPDATE tblTransactions SET [Action] = 1, Shares = 2 WHERE [Amount] <= -50");
  Trigger("mnuViewInvestTrans");
  auto& list = Get<SortedTable>("lvinvesttrans");
  EXPECT_EQ(list.model()->rowCount(), 2);
  FilterBy("mnuFilterInvestment", {"Bond"});
  EXPECT_EQ(window_->Shown().name, kInvestmentTransShow) << "it has a filter of its own";
  EXPECT_EQ(list.model()->rowCount(), 1);
  EXPECT_TRUE(
      list.parentWidget()->parentWidget()->findChild<FilterChip*>("pceInvestment")->isVisible());
  Trigger("mnuFilterNone");
  EXPECT_EQ(list.model()->rowCount(), 2);
}

TEST_F(FilterInWindow, ThePanelOpensByKeysAndItsButtonsOpenTheDialogs) {
  Start();
  auto& button = *View().findChild<QToolButton*>("cmdFilter");
  ASSERT_TRUE(button.isVisible());
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  auto& panel = Get<QWidget>("pnlFilter");
  ASSERT_TRUE(panel.isVisible());
  EXPECT_TRUE(Get<QPushButton>("cmdAccountFilter").hasFocus());
  QTest::keyClick(&Get<QPushButton>("cmdAccountFilter"), Qt::Key_Down);
  EXPECT_TRUE(Get<QPushButton>("cmdCategoryFilter").hasFocus());
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Filter By Category");
    EXPECT_EQ(dialog.property("mode").toString(), "CATEGORY");
  });
  QTest::keyClick(&Get<QPushButton>("cmdCategoryFilter"), Qt::Key_Return);
  EXPECT_FALSE(panel.isVisible());
  EXPECT_EQ(Get<QAction>("mnuFilterInvestment").toolTip(), "Investment Filter");
  EXPECT_EQ(Get<QAction>("mnuFilterKeyword").toolTip(), "Keyword Filter");
  EXPECT_EQ(Get<QAction>("mnuFilterText").toolTip(), "Search Text Filter");
}

TEST_F(FilterInWindow, EachDialogHasItsModeAndCaption) {
  Start();
  struct Named {
    const char* piece;
    const char* mode;
    const char* caption;
  };
  for (const Named& named : {Named{"Account", "ACCOUNT", "Filter By Accounts"},
                             Named{"Category", "CATEGORY", "Filter By Category"},
                             Named{"Payee", "PAYEE", "Filter By Payees"},
                             Named{"Investment", "INVESTMENT", "Filter By Investment"},
                             Named{"Keyword", "KEYWORD", "Filter By Keyword"}}) {
    const std::string piece = named.piece;
    int opened = 0;
    const auto look = [&](QDialog& dialog) {
      ++opened;
      EXPECT_EQ(dialog.windowTitle(), named.caption);
      EXPECT_EQ(dialog.property("mode").toString(), named.mode);
    };
    InNextDialog(look);
    Trigger(("mnuFilter" + piece).c_str());
    InNextDialog(look);
    Get<QPushButton>(("cmd" + piece + "Filter").c_str()).click();
    EXPECT_EQ(opened, 2) << piece;
  }
}

TEST_F(FilterInWindow, UsualPeriodsAreOneChoiceAway) {
  Start();
  auto& bar = *View().findChild<PeriodBar*>();
  auto choose = [&](const char* entry) { bar.findChild<QAction*>(entry)->trigger(); };
  choose("mnuPeriod0");
  EXPECT_TRUE(View().findChild<QCheckBox*>("chkUnset")->isChecked());
  ASSERT_TRUE(bar.InForce());
  const Date today = machine_.Get().clock.Today();
  EXPECT_EQ(bar.InForce()->start, today.AddDays(1 - today.Day()));
  auto* menu = bar.findChild<QToolButton*>("cmdPeriods")->menu();
  Q_EMIT menu->aboutToShow();
  EXPECT_TRUE(bar.findChild<QAction*>("mnuPeriod0")->isChecked());
  EXPECT_FALSE(bar.findChild<QAction*>("mnuPeriod4")->isChecked());
  EXPECT_EQ(window_->Shown().dates, bar.InForce());
  choose("mnuPeriod4");
  EXPECT_FALSE(View().findChild<QCheckBox*>("chkUnset")->isChecked());
  EXPECT_EQ(Texts(), "bread ham refund");
}

TEST_F(FilterInWindow, WhatIsShownIsWhatIsExported) {
  Start();
  FilterBy("mnuFilterPayee", {"Butcher"});
  const std::string path = machine_.folder.Path("out.qif");
  machine_.prompts.ExpectSaveFile(ScriptedPrompts::kAnyText, path);
  machine_.prompts.ExpectAsk(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText, true);
  machine_.prompts.ExpectTell(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText);
  Trigger("mnuFileExport");
  const std::string written = ReadFile(path);
  EXPECT_NE(written.find("Butcher"), std::string::npos) << written;
  EXPECT_EQ(written.find("Baker"), std::string::npos) << written;
  // A file is of one account.
  FilterBy("mnuFilterAccount", {"Purse", "Bank"});
  EXPECT_FALSE(Get<QAction>("mnuFileExport").isEnabled());
}

class FilterDialog : public DialogTest<WindowTest> {
 protected:
  QTreeWidget& List(QDialog& dialog) { return Find<QTreeWidget>(dialog, "lvFilter"); }
};

TEST_F(FilterDialog, AWholeCategoryIsTickedWithItsSubCategoriesByKeys) {
  OpenData(true);
  Run("DELETE FROM tblCategory");
  int key = 0;
  for (const char* row : {"'Food',''", "'Food','Groceries'", "'Food','Wine'", "'Rent',''"}) {
    Run("INSERT INTO tblCategory (CategoryID,Category,SubCategory,[Type]) VALUES (" +
        std::to_string(++key) + "," + row + ",-1)");
  }
  FilterChoice choice(session_.Ledger().Store(), FilterKind::Category, {2});
  FrmFilter dialog(choice, machine_.prompts, nullptr);
  Show(dialog);
  QTreeWidgetItem* food = List(dialog).topLevelItem(0);
  EXPECT_EQ(food->checkState(0), Qt::PartiallyChecked);
  EXPECT_TRUE(food->isExpanded()) << "what is ticked is in sight";
  EXPECT_EQ(food->child(1)->checkState(0), Qt::Checked);
  EXPECT_EQ(FocusOf(dialog), "txtFind");
  QTest::keyClick(&Find<QLineEdit>(dialog, "txtFind"), Qt::Key_Down);
  EXPECT_EQ(FocusOf(dialog), "lvFilter");
  QTest::keyClick(&List(dialog), Qt::Key_Space);
  EXPECT_EQ(dialog.List(), "1,2,3");
  EXPECT_EQ(food->child(2)->checkState(0), Qt::Checked);
  QTest::keyClick(&List(dialog), Qt::Key_Space);
  EXPECT_EQ(dialog.List(), "");
  // What was looked for is ticked, not all that stands with it.
  Type(dialog, "txtFind", "wine");
  QTest::keyClick(&Find<QLineEdit>(dialog, "txtFind"), Qt::Key_Down);
  QTest::keyClick(&List(dialog), Qt::Key_Space);
  EXPECT_EQ(dialog.List(), "3");
  Click(dialog, "cmdDSelect");
  Type(dialog, "txtFind", "");
  food->child(0)->setCheckState(0, Qt::Checked);
  EXPECT_EQ(food->checkState(0), Qt::PartiallyChecked);
  QTest::keyClick(&List(dialog), Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.List(), "1");
}

TEST_F(FilterDialog, WhatIsTypedFindsAnItemAmongAThousand) {
  OpenData(true);
  Transaction all = session_.Ledger().Store().Begin();
  Run("DELETE FROM tblPayees");
  for (int payee = 1; payee <= 1000; ++payee) {
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (" + std::to_string(payee) +
        ",'Payee " + std::to_string(payee) + "',0)");
  }
  all.Commit();
  FilterChoice choice(session_.Ledger().Store(), FilterKind::Payee, {5});
  FrmFilter dialog(choice, machine_.prompts, nullptr);
  Show(dialog);
  Type(dialog, "txtFind", "YEE 99");
  const auto shown = [&] {
    int count = 0;
    for (int row = 0; row < List(dialog).topLevelItemCount(); ++row) {
      if (!List(dialog).topLevelItem(row)->isHidden()) ++count;
    }
    return count;
  };
  EXPECT_EQ(shown(), 11);
  Click(dialog, "cmdSelect");
  EXPECT_EQ(Find<QLabel>(dialog, "lblChosen").text(), "12 of 1,000 ticked") << "and that before";
  Type(dialog, "txtFind", "%'\"[x");
  EXPECT_EQ(shown(), 0);
  EXPECT_EQ(Find<QLabel>(dialog, "lblChosen").text(), "Nothing in the list has these letters");
  Click(dialog, "cmdSelect");
  QTest::keyClick(&Find<QLineEdit>(dialog, "txtFind"), Qt::Key_Down);
  EXPECT_NE(FocusOf(dialog), "lvFilter") << "there is nothing in it";
  EXPECT_EQ(choice.TickedCount(), 12U);
  Click(dialog, "cmdDSelect");
  EXPECT_EQ(dialog.List(), "") << "what is not shown, too";
}

TEST_F(FilterInWindow, RowsOfAClosedAccountAmongSeveralStayAsTheyAre) {
  Start();
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = 2");
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "Closed", "1");
  ViewCommand command{kTransactionShow, 1};
  command.rows.SetKeys(FilterKind::Account, {1, 2});
  window_->Show(command);
  ASSERT_EQ(Table().model()->rowCount(), 4);
  Table().selectAll();
  for (const char* action : {"mnuTransChk", "mnuTransEdit"}) {
    machine_.prompts.ExpectTell("Amend Item", "This Account is closed, Items cannot be amended");
    Trigger(action);
  }
  const auto cleared = [this] {
    return session_.Ledger()
        .Store()
        .QueryValue("Select Count(*) from tblTransactions Where BankChk <> 0")
        .Int();
  };
  EXPECT_EQ(cleared(), 0);
  // What is chosen in the open account alone can be changed.
  for (int row = 0; row < Table().model()->rowCount(); ++row) {
    if (Texts().split(u' ').at(row) == "ham") Table().ChooseRow(row);
  }
  Trigger("mnuTransChk");
  EXPECT_EQ(cleared(), 1);
}

}  // namespace
}  // namespace corvanta
