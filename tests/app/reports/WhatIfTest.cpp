#include "app/LedgerSession.h"
#include "app/WindowTest.h"
#include "app/filter/FilterChip.h"
#include "controls/SortedTable.h"
#include "support/DialogTest.h"

#include <QLineEdit>

namespace corvanta {
namespace {

class WhatIfTest : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenPurse();
    ShowWindow();
    window_->resize(1400, 900);
    BringForward();
    ViewCommand forecast{kReportSelected};
    forecast.report.report = 15;
    window_->Show(forecast);
  }
  // What is expected on the first day, and the last balance.
  std::string Expected() { return Cell(0, 2) + " " + Cell(Rows() - 1, 4); }
  int Rows() { return WindowTest::Find<SortedTable>("lvReportSelect").model()->rowCount(); }
  std::string Cell(int row, int column) {
    const auto& list = WindowTest::Find<SortedTable>("lvReportSelect");
    return list.model()->index(row, column).data().toString().toStdString();
  }
  void Press(const char* button) {
    QTest::keyClick(&WindowTest::Find<QPushButton>(button), Qt::Key_Space);
  }
};

TEST_F(WhatIfTest, APaymentCountsAsLongAsItStandsThere) {
  Start();
  ASSERT_EQ(Expected(), "0.00 100.00");
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmWhatIf");
    EXPECT_EQ(FocusOf(dialog), "dtWhatIf");
    Type(dialog, "txtWhatIfAmount", "12.50*2");
    Type(dialog, "txtWhatIfText", "A lamp");
    QTest::keyClick(&Find<QLineEdit>(dialog, "txtWhatIfText"), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  Press("cmdWhatIf");
  EXPECT_EQ(Expected(), "-25.00 75.00");
  auto& chip = WindowTest::Find<FilterChip>("pceWhatIf0");
  EXPECT_TRUE(chip.text().startsWith("What if: A lamp, ")) << qPrintable(chip.text());
  EXPECT_TRUE(chip.text().endsWith("-25.00 GBP, Purse")) << qPrintable(chip.text());
  // It is opened and changed.
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtWhatIfAmount").text(), "25.00");
    Type(dialog, "txtWhatIfAmount", "30");
    Click(dialog, "cmdAccept");
  });
  QTest::keyClick(&chip, Qt::Key_Return);
  EXPECT_EQ(Expected(), "-30.00 70.00");
  Trigger("mnuReport1");
  EXPECT_FALSE(WindowTest::Find<QPushButton>("cmdWhatIf").isVisible());
  Trigger("mnuViewBack");
  EXPECT_EQ(Expected(), "-30.00 70.00") << "as it was left";
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QTest::keyClick(&WindowTest::Find<FilterChip>("pceWhatIf0"), Qt::Key_Delete);
  EXPECT_EQ(Expected(), "0.00 100.00");
  EXPECT_EQ(FocusOf(*window_), "cmdWhatIf");
}

TEST_F(WhatIfTest, APaymentOfAnAccountThatIsGoneSaysSo) {
  Start();
  ViewCommand forecast{kReportSelected};
  forecast.report.report = 15;
  forecast.report.whatIf = {{window_->Today().AddDays(3), 77, -5, {}}};
  window_->Show(forecast);
  const QString text = WindowTest::Find<FilterChip>("pceWhatIf0").text();
  EXPECT_TRUE(text.endsWith("-5.00, an account that is gone")) << qPrintable(text);
}

TEST_F(WhatIfTest, NonsenseIsRefusedInWordsAndStays) {
  Start();
  InNextDialog([this](QDialog& dialog) {
    Type(dialog, "txtWhatIfAmount", "(1");
    machine_.prompts.ExpectTell("What If", "You need to enter a valid Amount");
    Click(dialog, "cmdAccept");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtWhatIfAmount").text(), "(1");
    Type(dialog, "dtWhatIf", "yesterday");
    machine_.prompts.ExpectTell("What If", "You need to enter a valid Date");
    Click(dialog, "cmdAccept");
    EXPECT_TRUE(dialog.isVisible());
  });
  Press("cmdWhatIf");
  EXPECT_EQ(Expected(), "0.00 100.00");
}

}  // namespace
}  // namespace corvanta
