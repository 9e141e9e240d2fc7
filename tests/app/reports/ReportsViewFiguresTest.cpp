#include "app/LedgerSession.h"
#include "app/reports/ReportsViewTest.h"
#include "controls/ListTable.h"

namespace corvanta {
namespace {

TEST_F(ReportsViewTest, AFigureSaysWhatItIsMadeOfAndLeadsToTheRegister) {
  Start();
  Trigger("mnuReport7");
  ASSERT_EQ(Cell(0, "Payee"), "Baker");
  List().setCurrentIndex(List().model()->index(0, 4));
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmExplain");
    auto& list = Find<ListTable>(dialog, "lvExplain");
    EXPECT_EQ(list.model()->rowCount(), 2);
    EXPECT_TRUE(Find<QLabel>(dialog, "lblSum").text().contains("-29.00"));
    QTest::keyClick(&list, Qt::Key_Return);
  });
  QTest::keyClick(&List(), Qt::Key_F8);
  EXPECT_EQ(window_->Shown().name, kTransactionShow);
  EXPECT_EQ(window_->Shown().accountId, 1);
  Trigger("mnuViewBack");
  EXPECT_EQ(Shown(), "Spending by Payee");
  EXPECT_EQ(window_->Shown().name, kReportSelected);
  // Ctrl and a click on the figure ask the same.
  bool isAsked = false;
  ClickRow(0, 4, Qt::ControlModifier,
           [&](QDialog& dialog) { isAsked = dialog.objectName() == "FrmExplain"; });
  EXPECT_TRUE(isAsked);
  EXPECT_EQ(Shown(), "Spending by Payee");
  // How many there are is no money.
  std::string sum;
  ClickRow(1, 1, Qt::ControlModifier,
           [&](QDialog& dialog) { sum = Find<QLabel>(dialog, "lblSum").text().toStdString(); });
  EXPECT_EQ(sum, "1 row makes 1");
}

TEST_F(ReportsViewTest, APointOfAChartSaysWhatItIsMadeOf) {
  Start();
  for (int payee = 600; payee < 620; ++payee) {
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (" + std::to_string(payee) +
        ",'Shop " + std::to_string(payee) + "',0)");
    Add(1, 2, payee, "#03/05/2026#,-1");
  }
  Trigger("mnuReport7");
  Tabs().setCurrentIndex(2);
  auto& chart = Get<QWidget>("chartReport");
  ASSERT_TRUE(chart.hasFocus()) << "the keys are on the chart";
  const auto sum = [&] {
    std::string said;
    BringForward();
    InNextDialog([&](QDialog& dialog) {
      said = Find<QLabel>(dialog, "lblFigure").text().toStdString() + ": " +
             Find<QLabel>(dialog, "lblSum").text().toStdString();
    });
    QTest::keyClick(&chart, Qt::Key_F8);
    std::erase_if(said, [](char c) { return c < ' ' || c > '~'; });
    return said;
  };
  EXPECT_EQ(sum(), "Spending by Payee: Expense of Baker: 2 rows make -29.00 GBP");
  QTest::keyClick(&chart, Qt::Key_End);
  EXPECT_EQ(sum(), "Spending by Payee: Expense of Others (10): 10 rows make -10.00 GBP");
  // Of a stacked chart the columns of the report stand along the axis.
  Trigger("mnuReport8");
  Tabs().setCurrentIndex(2);
  QTest::keyClick(&chart, Qt::Key_Home);
  QTest::keyClick(&chart, Qt::Key_Right);
  EXPECT_EQ(sum(), "Monthly Spending by Payee: February of Baker: 1 row makes -9.00 GBP");
  QTest::keyClick(&chart, Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(Shown(), "Account Transactions");
}

}  // namespace
}  // namespace corvanta
