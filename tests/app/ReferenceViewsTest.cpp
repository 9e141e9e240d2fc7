#include "app/WindowTest.h"
#include "app/lists/ReferenceView.h"
#include "controls/SortedTable.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

namespace corvanta {
namespace {

// The lists of accounts, categories and payees, from which their rows are added, edited and
// deleted.
class ReferenceViews : public WindowTest {
 protected:
  void Start(const char* view) {
    OpenData();
    ShowWindow();
    BringForward();
    Trigger(view);
  }
  SortedTable& Table(const char* name) { return Find<SortedTable>(name); }
  int RowOf(SortedTable& table, const QString& name) {
    for (int row = 0; row < table.model()->rowCount(); ++row) {
      for (int column = 0; column < 2 && column < table.model()->columnCount(); ++column) {
        if (table.model()->index(row, column).data().toString() == name) return row;
      }
    }
    return -1;
  }
  // Types a name into the editor that opens next and saves it.
  void FillNextEditor(const char* editor, const char* field, const QString& name, bool isNew) {
    QTimer::singleShot(0, qApp, [this, editor, field, name, isNew] {
      auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (form == nullptr) form = window_->findChild<QDialog*>(QLatin1String(editor));
      ASSERT_NE(form, nullptr) << editor;
      EXPECT_EQ(form->objectName(), QLatin1String(editor));
      auto* edit = form->findChild<QLineEdit*>(QLatin1String(field));
      ASSERT_NE(edit, nullptr) << field;
      edit->selectAll();
      QTest::keyClicks(edit, name);
      QTest::mouseClick(form->findChild<QPushButton*>(QStringLiteral("cmdAccept")), Qt::LeftButton);
      if (isNew) form->reject();
    });
  }
};

TEST_F(ReferenceViews, APayeeIsAddedEditedAndDeleted) {
  Start("mnuViewPayees");
  auto& table = Table("lvpayee");
  const int count = table.model()->rowCount();
  ASSERT_GT(count, 3);
  table.setFocus();
  FillNextEditor("FrmPayees", "txtPayee", "Miller's Bakery", true);
  QTest::keyClick(&table, Qt::Key_Insert);
  EXPECT_EQ(table.model()->rowCount(), count + 1);
  EXPECT_EQ(table.currentIndex().row(), RowOf(table, "Miller's Bakery")) << "the new one is chosen";
  FillNextEditor("FrmPayees", "txtPayee", "Miller & Son", false);
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_EQ(table.currentIndex().row(), RowOf(table, "Miller & Son"));
  EXPECT_EQ(RowOf(table, "Miller's Bakery"), -1);
  machine_.prompts.ExpectAsk("Delete Item?", ScriptedPrompts::kAnyText, false);
  Trigger("mnuEditDelete");
  EXPECT_GE(RowOf(table, "Miller & Son"), 0);
  machine_.prompts.ExpectAsk("Delete Item?", ScriptedPrompts::kAnyText, true);
  Trigger("mnuEditDelete");
  EXPECT_EQ(RowOf(table, "Miller & Son"), -1);
  Trigger("mnuEditUndo");
  EXPECT_GE(RowOf(table, "Miller & Son"), 0);
}

// The dialog stays for the next one; who looks behind it sees what was saved.
TEST_F(ReferenceViews, TheListBehindFollowsEachSave) {
  Start("mnuViewPayees");
  auto& table = Table("lvpayee");
  const int count = table.model()->rowCount();
  int behind = 0;
  QTimer::singleShot(0, qApp, [&] {
    auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(form, nullptr);
    QTest::keyClicks(form->findChild<QLineEdit*>("txtPayee"), "Behind the Dialog");
    QTest::mouseClick(form->findChild<QPushButton*>("cmdAccept"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(form->isVisible());
    behind = table.model()->rowCount();
    form->reject();
  });
  Trigger("mnuPayeeNew");
  EXPECT_EQ(behind, count + 1);
  EXPECT_EQ(table.currentIndex().row(), RowOf(table, "Behind the Dialog"));
}

TEST_F(ReferenceViews, APayeeInUseStays) {
  Start("mnuViewPayees");
  auto& table = Table("lvpayee");
  const int row = RowOf(table, "Gas R US");
  ASSERT_GE(row, 0);
  table.selectRow(row);
  machine_.prompts.ExpectAsk("Delete Item?", ScriptedPrompts::kAnyText, true);
  Trigger("mnuPayeeDelete");
  EXPECT_EQ(RowOf(table, "Gas R US"), row);
}

TEST_F(ReferenceViews, CategoriesStandGroupedAndCanBeEdited) {
  Start("mnuViewCategories");
  EXPECT_EQ(window_->Shown().name, kCategoryShow);
  auto& table = Table("lvcategory");
  QStringList heads;
  for (int column = 0; column < table.model()->columnCount(); ++column) {
    heads.append(table.model()->headerData(column, Qt::Horizontal).toString());
  }
  EXPECT_EQ(heads.join(u'|'), "Category|Sub Category|Budget|Period|Type|Description");
  const int count = table.model()->rowCount();
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_End);
  FillNextEditor("FrmCategory", "txtDescription", "Seen", false);
  Trigger("mnuEditDetails");
  EXPECT_EQ(table.model()->index(count - 1, 5).data().toString(), "Seen");
  // Columns are sorted from the menu, too.
  table.ChooseColumn(4);
  EXPECT_EQ(table.model()->index(0, 4).data().toString(), "Expense");
  table.ChooseColumn(4);
  EXPECT_EQ(table.model()->index(0, 4).data().toString(), "Income");
}

TEST_F(ReferenceViews, AnAccountChangesListAndTree) {
  Start("mnuViewAccounts");
  auto& table = Table("lvbalance");
  table.selectRow(0);
  FillNextEditor("FrmAccounts", "txtAccount", "Household", false);
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_F2);
  EXPECT_EQ(table.model()->index(0, 0).data().toString(), "Household");
  EXPECT_EQ(Find<QTreeWidget>("tvAccounts").topLevelItem(0)->child(0)->text(0), "Household");
  EXPECT_TRUE(Find<QAction>("mnuEditUndo").isEnabled());
  Trigger("mnuEditUndo");
  EXPECT_EQ(table.model()->index(0, 0).data().toString(), "Sample Bank Account");
}

}  // namespace
}  // namespace corvanta
