#include "controls/ListTable.h"
#include "platform/SettingsTable.h"
#include "reports/custom/FrmColumns.h"
#include "reports/custom/FrmReport.h"
#include "reports/custom/ReportDefinitions.h"
#include "support/DialogTest.h"
#include "support/TestPlatform.h"

#include <QListWidget>

namespace corvanta {
namespace {

class FrmReportTest : public DialogTest<testing::Test> {
 protected:
  void Save(const std::string& name, int report) {
    ReportDefinition made;
    made.name = name;
    made.report = report;
    ReportDefinitions(machine_.registry).Save(made);
  }
  static std::string Cell(FrmReport& dialog, int row, int column) {
    const QAbstractItemModel& model = *Find<ListTable>(dialog, "lvReports").model();
    return model.index(row, column).data().toString().toStdString();
  }
  TestPlatform machine_;
};

TEST_F(FrmReportTest, TheSavedReportsAreListedOpenedAndDeleted) {
  Save("Mine", 5);
  Save("Also mine", 2);
  FrmReport dialog(machine_.registry, machine_.prompts, nullptr);
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Custom Reports");
  EXPECT_EQ(Cell(dialog, 0, 0), "Also mine");
  EXPECT_EQ(Cell(dialog, 0, 1), "Monthly Cash Flow");
  EXPECT_EQ(FocusOf(dialog), "lvReports");
  machine_.prompts.ExpectAsk("Delete Custom Report?", "Do you want to delete the selected report?",
                             true);
  QTest::keyClick(&Find<QWidget>(dialog, "lvReports"), Qt::Key_Delete);
  EXPECT_EQ(Find<ListTable>(dialog, "lvReports").model()->rowCount(), 1);
  EXPECT_EQ(NoteOf(dialog), "\"Also mine\" was deleted");
  QTest::keyClick(&Find<QWidget>(dialog, "lvReports"), Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  ASSERT_TRUE(dialog.Opened());
  EXPECT_EQ(dialog.Opened()->definition.report, 5);
}

TEST_F(FrmReportTest, OneThatDoesNotSayItsReportIsToldAndTheDialogStays) {
  Save("Odd", 500);
  FrmReport dialog(machine_.registry, machine_.prompts, nullptr);
  Show(dialog);
  EXPECT_EQ(Cell(dialog, 0, 1), "not known");
  machine_.prompts.ExpectTell("Open Custom Report", ScriptedPrompts::kAnyText);
  Click(dialog, "cmdAccept");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_FALSE(dialog.Opened());
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FrmReportTest, WithoutSavedReportsThereIsNothingToOpen) {
  FrmReport dialog(machine_.registry, machine_.prompts, nullptr);
  Show(dialog);
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdAccept").isEnabled());
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdDelete").isEnabled());
}

TEST_F(FrmReportTest, ColumnsArePickedAndOneMustBe) {
  FrmColumns dialog({"Total", "Category"}, {"Category", "Total", "Currency"}, machine_.prompts,
                    nullptr);
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Pick Columns for Report");
  auto& list = Find<QListWidget>(dialog, "lvColumns");
  ASSERT_EQ(list.count(), 42);
  EXPECT_EQ(list.currentItem()->text(), "Category") << "the first of the report's own";
  Click(dialog, "cmdDSelect");
  machine_.prompts.ExpectTell("Pick Columns", "Please select at least one column for the report");
  Click(dialog, "cmdAccept");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(machine_.prompts.Shown().back().icon, Icon::Information);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Space);
  Click(dialog, "cmdAccept");
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Columns(), std::vector<std::string>{"Category"});
}

}  // namespace
}  // namespace corvanta
