// What a person does with rows and columns: unfolding split rows, sums and copies of the chosen
// ones, and the menus of heads and of the account tree.
#include "app/WindowTest.h"
#include "app/lists/ChosenTotals.h"
#include "app/lists/HeaderMenu.h"
#include "app/register/RegisterDelegate.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "app/tree/AccountTree.h"
#include "controls/SortedTable.h"
#include "platform/IcuLocale.h"

#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>

namespace corvanta {
namespace {

TEST(ChosenTotalsTest, AddsByCurrencyAndSaysNothingOfOneRow) {
  const IcuLocale british("en_GB");
  ChosenTotals totals;
  totals.Add(-12.5, "GBP");
  EXPECT_EQ(totals.Text(british), "");
  totals.Add(7, "EUR");
  totals.Add(0.1, "GBP");
  totals.Add(0.2, "GBP");
  EXPECT_EQ(totals.Text(british), "4 chosen: -12.20 GBP, 7.00 EUR");
  ChosenTotals many;
  many.Add(-1, "", 1200);
  EXPECT_EQ(many.Text(british), "1,200 chosen: -1.00");
}

class Rows : public WindowTest {
 protected:
  void Start() {
    OpenData();
    Run("DELETE FROM tblTransactions WHERE AllocatedItem = 3");
    AddLine("-20.46", "Fish & chips");
    AddLine("-25", "Bread");
    ShowWindow();
    window_->resize(1500, 800);
    window_->Show({kTransactionShow, 1});
    BringForward();
  }
  // Of the third transaction, which is of 45.46.
  void AddLine(const std::string& amount, const std::string& description) {
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
        "[Amount],[Date],Description) VALUES (1,30,1,1,3," +
        amount + ",#11/13/2026#,'" + description + "')");
  }
  SortedTable& Table() { return Find<SortedTable>("lvbank"); }
  RegisterView& View() { return *window_->findChild<RegisterView*>(); }
  RegisterModel& Model() { return View().Model(); }
  int Row() { return Model().RowOf(3); }
  int Height() { return Table().rowHeight(Row()); }
  int Single() { return Table().verticalHeader()->defaultSectionSize(); }
  void Press(Qt::Key key) { QTest::keyClick(&Table(), key); }
  // The menu that opens.
  QMenu& Popup() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) throw std::runtime_error("no menu has opened");
    return *menu;
  }
  static QAction& Entry(const QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions()) {
      if (QString(action->text()).remove(u'&').startsWith(text)) return *action;
    }
    throw std::runtime_error("no entry " + text.toStdString());
  }
};

TEST_F(Rows, SplitRowsAreUnfoldedByKeysByTheirMarkAndByTheMenu) {
  Start();
  Table().setFocus();
  Table().ChooseRow(Row());
  for (const auto& [unfold, fold] :
       {std::pair(Qt::Key_Right, Qt::Key_Left), std::pair(Qt::Key_Plus, Qt::Key_Minus)}) {
    Press(unfold);
    EXPECT_EQ(Height(), 3 * Single());
    const auto& lines = Model().Lines(3);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].description, "Fish & chips");
    EXPECT_EQ(lines[0].amount, -20.46);
    EXPECT_FALSE(lines[1].category.isEmpty());
    Press(unfold);
    EXPECT_EQ(Height(), 3 * Single());
    Press(fold);
    EXPECT_EQ(Height(), Single());
    EXPECT_TRUE(Model().Lines(3).empty());
  }
  const QRect cell = Table().visualRect(Model().index(Row(), RegisterModel::kPayee));
  const QRect mark = RegisterDelegate::FoldMark(cell, Single(), Model().Row(Row()));
  ASSERT_TRUE(cell.contains(mark));
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, mark.center());
  EXPECT_EQ(Height(), 3 * Single());
  EXPECT_TRUE(Find<QAction>("mnuTransLines").isVisible());
  EXPECT_TRUE(Find<QAction>("mnuTransLines").isChecked());
  Trigger("mnuTransLines");
  EXPECT_EQ(Height(), Single());
  // A row without lines has nothing to unfold.
  Table().ChooseRow(Row() + 1);
  Press(Qt::Key_Right);
  EXPECT_EQ(Table().rowHeight(Row() + 1), Single());
  EXPECT_FALSE(Find<QAction>("mnuTransLines").isVisible());
}

TEST_F(Rows, AnUnfoldedRowStaysSoInAnotherOrderAndFollowsItsLines) {
  Start();
  Table().setFocus();
  Table().ChooseRow(Row());
  Press(Qt::Key_Right);
  Table().ChooseColumn(RegisterModel::kPaidOut);
  EXPECT_EQ(Height(), 3 * Single());
  EXPECT_EQ(Table().rowHeight(Row() == 0 ? 1 : 0), Single());
  AddLine("-1", "Bag");
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Height(), 4 * Single());
  const QString told =
      Model().index(Row(), RegisterModel::kPayee).data(Qt::AccessibleTextRole).toString();
  EXPECT_TRUE(told.contains("Fish & chips -20.46")) << told.toStdString();
  Run("DELETE FROM tblTransactions WHERE AllocatedItem = 3");
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Height(), Single());
  AddLine("-45.46", "All");
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Height(), Single()) << "what is no split any more is folded";
}

TEST_F(Rows, WhereAFilterShowsTheRowItIsFolded) {
  Start();
  Table().setFocus();
  Table().ChooseRow(Row());
  Press(Qt::Key_Right);
  ASSERT_EQ(Height(), 3 * Single());
  ViewCommand command{kTransactionShow, 0};
  command.rows.SetKeys(FilterKind::Account, {1});
  window_->Show(command);
  ASSERT_GE(Row(), 0);
  EXPECT_EQ(Height(), Single());
  EXPECT_TRUE(Model().Lines(3).empty());
}

TEST_F(Rows, TheLinesStandInTheirColumnsWithoutABalance) {
  Start();
  Table().ChooseRow(Row());
  Table().setFocus();
  Press(Qt::Key_Right);
  Table().ChooseRow(Row() + 1);
  const auto drawn = [&](int column) {
    const QRect cell = Table().visualRect(Model().index(Row(), column));
    const QImage below = Table()
                             .viewport()
                             ->grab(cell.adjusted(4, Single() + 2, -4, -2))
                             .toImage()
                             .convertToFormat(QImage::Format_RGB32);
    const QRgb background = below.pixel(0, 0);
    for (int y = 0; y < below.height(); ++y) {
      for (int x = 0; x < below.width(); ++x) {
        if (below.pixel(x, y) != background) return true;
      }
    }
    return false;
  };
  for (const int column :
       {RegisterModel::kCategory, RegisterModel::kDescription, RegisterModel::kPaidOut}) {
    EXPECT_TRUE(drawn(column)) << column;
  }
  for (const int column : {RegisterModel::kDate, RegisterModel::kPaidIn, RegisterModel::kBalance}) {
    EXPECT_FALSE(drawn(column)) << column;
  }
  // Without a column for it the payee's has the description.
  EXPECT_FALSE(drawn(RegisterModel::kPayee));
  Trigger("mnuViewDescription");
  EXPECT_TRUE(drawn(RegisterModel::kPayee));
}

TEST_F(Rows, TheStatusBarSaysWhatTheChosenRowsComeTo) {
  Start();
  auto& label = Find<QLabel>("lblChosen");
  Table().setFocus();
  Table().ChooseRow(0);
  EXPECT_FALSE(label.isVisible());
  QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
  const double sum = Model().Entry(0).amount + Model().Entry(1).amount;
  EXPECT_TRUE(label.isVisible());
  EXPECT_EQ(label.text().toStdString(), "2 chosen: " + machine_.locale.FormatNumber(sum) + " GBP");
  Table().selectAll();
  double all = 0;
  for (int row = 0; row < Model().rowCount(); ++row) all += Model().Entry(row).amount;
  EXPECT_EQ(label.text().toStdString(), "13 chosen: " + machine_.locale.FormatNumber(all) + " GBP");
  window_->ShowView(kPayeeShow);
  EXPECT_FALSE(label.isVisible());
}

TEST_F(Rows, CopiedRowsAreTextWithHeadingsBesideTheProgramsOwnForm) {
  Start();
  Run("UPDATE tblTransactions SET Description = 'one' & '\t' & 'two' WHERE TransactionID = 3");
  Trigger("mnuViewRefresh");
  Table().setFocus();
  Table().ChooseRow(Row());
  QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
  const QMimeData& clip = *QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(clip.hasFormat("application/x-corvanta-transactions"));
  const QStringList lines = clip.text().split(u'\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0].toStdString(),
            "Date\tPayee\tCategory\tPayment\tRef\tDescription\tStatus\tPaid Out\tPaid In\tBalance");
  const QStringList cells = lines[1].split(u'\t');
  ASSERT_EQ(cells.size(), 10) << lines[1].toStdString();
  EXPECT_EQ(cells[0], "13/11/2026");
  EXPECT_EQ(cells[5], "one two");
  EXPECT_EQ(cells[7], "-45.46");
  EXPECT_TRUE(Find<QAction>("mnuEditPaste").isEnabled());
}

TEST_F(Rows, TheMenuOfAHeadChoosesColumnsAndTheirWidths) {
  Start();
  QHeaderView& head = *Table().horizontalHeader();
  const auto open = [&](int column) {
    const QPoint place(head.sectionViewportPosition(column) + 12, head.height() / 2);
    Q_EMIT head.customContextMenuRequested(place);
    return &Popup();
  };
  QMenu* menu = open(RegisterModel::kPayee);
  EXPECT_TRUE(menu->actions().contains(&Find<QAction>("mnuViewDescription")));
  Entry(*menu, "Show Description").trigger();
  menu->close();
  EXPECT_TRUE(Table().isColumnHidden(RegisterModel::kDescription));
  EXPECT_EQ(Setting("ShowDesc"), "0");
  menu = open(RegisterModel::kPayee);
  Entry(*menu, "Sort by Payee").trigger();
  menu->close();
  EXPECT_EQ(Table().Sorted().column, RegisterModel::kPayee);
  const int before = Table().columnWidth(RegisterModel::kPayee);
  menu = open(RegisterModel::kPayee);
  Entry(*menu, "Fit Payee").trigger();
  menu->close();
  const int fitted = Table().columnWidth(RegisterModel::kPayee);
  EXPECT_LT(fitted, before) << "names are short and the window is wide";
  for (int row = 0; row < Model().rowCount(); ++row) {
    const QString payee = Model().index(row, RegisterModel::kPayee).data().toString();
    EXPECT_GT(fitted, Table().fontMetrics().horizontalAdvance(payee));
  }
  menu = open(RegisterModel::kPayee);
  Entry(*menu, "Reset").trigger();
  menu->close();
  EXPECT_EQ(Table().columnWidth(RegisterModel::kPayee), before);
  EXPECT_TRUE(Table().Widths().isEmpty());
  Trigger("mnuViewFit");
  EXPECT_FALSE(Table().Widths().isEmpty());
}

TEST_F(Rows, EveryOtherListHasATickForEachOfItsColumns) {
  Start();
  window_->ShowView(kPayeeShow);
  auto& list = Find<SortedTable>("lvpayee");
  QHeaderView& head = *list.horizontalHeader();
  Q_EMIT head.customContextMenuRequested(QPoint(12, head.height() / 2));
  QMenu& menu = Popup();
  auto* columns = menu.findChild<QMenu*>("mnuColumns");
  ASSERT_NE(columns, nullptr);
  ASSERT_EQ(columns->actions().size(), list.model()->columnCount());
  columns->actions().constFirst()->trigger();
  menu.close();
  EXPECT_TRUE(list.isColumnHidden(0));
  const QString kept = list.Widths();
  window_->close();
  EXPECT_EQ(Setting("chP"), kept.toStdString());
  ShowWindow().Restore();
  EXPECT_TRUE(Find<SortedTable>("lvpayee").isColumnHidden(0));
}

TEST_F(Rows, TheMenuOfTheTreeIsAboutTheAccountBelowTheMouse) {
  Start();
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Purse',2,17,5,0)");
  window_->ShowView(kPayeeShow);
  Trigger("mnuViewRefresh");
  auto& tree = Find<AccountTree>("tvAccounts");
  QTreeWidgetItem* purse = tree.topLevelItem(1)->child(0);
  const QPoint place = tree.visualItemRect(purse).center();
  QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, place);
  Q_EMIT tree.customContextMenuRequested(place);
  QMenu& menu = Popup();
  for (const char* action : {"mnuTransAdd", "mnuTransReconcile", "mnuAccountEdit",
                             "mnuAccountDelete", "mnuAccountAdd", "mnuAccountList"}) {
    EXPECT_TRUE(menu.actions().contains(&Find<QAction>(action))) << action;
    EXPECT_TRUE(Find<QAction>(action).isEnabled()) << action;
  }
  Entry(menu, "Open Register").trigger();
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 2}));
  Entry(menu, "Fold All Groups").trigger();
  menu.close();
  EXPECT_FALSE(tree.topLevelItem(0)->isExpanded());
  // On a group only what concerns all accounts.
  Q_EMIT tree.customContextMenuRequested(tree.visualItemRect(tree.topLevelItem(0)).center());
  EXPECT_FALSE(Popup().actions().contains(&Find<QAction>("mnuAccountEdit")));
  Popup().close();
}

}  // namespace
}  // namespace corvanta
