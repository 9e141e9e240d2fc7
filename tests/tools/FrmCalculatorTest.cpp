#include "support/DialogTest.h"
#include "support/TestPlatform.h"
#include "tools/FrmCalculator.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>

namespace corvanta {
namespace {

class Calculator : public DialogTest<testing::Test> {
 protected:
  void Enter(const QString& sum) {
    Type(dialog_, "txtSum", sum);
    QTest::keyClick(&Find<QLineEdit>(dialog_, "txtSum"), Qt::Key_Return);
  }
  QString Line(int row) { return Find<QListWidget>(dialog_, "lvSums").item(row)->text(); }

  TestPlatform machine_;
  FrmCalculator dialog_{machine_.Get(), nullptr};
};

TEST_F(Calculator, SumsAreWorkedOutAndGoneOnWith) {
  Show(dialog_);
  Enter("12.50*3+(4-1)/2");
  EXPECT_EQ(Line(0), "12.50*3+(4-1)/2 = 39");
  EXPECT_EQ(NoteOf(dialog_), "39");
  Enter("/8");
  EXPECT_EQ(Line(1), "39/8 = 4.875") << "goes on with the last result";
  machine_.prompts.ExpectTell("Calculation Warning", ScriptedPrompts::kAnyText);
  Enter("2*(");
  EXPECT_EQ(machine_.prompts.Shown().size(), 1U);
  EXPECT_EQ(Find<QLineEdit>(dialog_, "txtSum").text(), "2*(") << "kept to be mended";
  Find<QListWidget>(dialog_, "lvSums").setCurrentRow(0);
  Click(dialog_, "cmdCopy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "39");
  Click(dialog_, "cmdUse");
  EXPECT_EQ(Find<QLineEdit>(dialog_, "txtSum").text(), "39");
  QTest::keyClick(&dialog_, Qt::Key_Escape);
  EXPECT_FALSE(dialog_.isVisible());
}

}  // namespace
}  // namespace corvanta
