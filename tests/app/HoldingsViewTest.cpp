#include "app/WindowTest.h"
#include "controls/Plot.h"
#include "controls/SortedTable.h"
#include "platform/Settings.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>

namespace corvanta {
namespace {

class HoldingsViewTest : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenData(true);
    for (const char* account : {"Broker", "Other"}) {
      Run(std::string("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,"
                      "CloseAccount) VALUES ('") +
          account + "',2,17,0,0)");
    }
    Run("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment,CurrencyID,InvestCurrencyID) "
        "VALUES (500,'Acme','ACM',1,17,17)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment,CurrencyID,InvestCurrencyID) "
        "VALUES (501,'Bolt','BLT',1,17,17)");
    AddRow(1, 500, "#01/05/2025#,1,10,5,-50");
    AddRow(1, 500, "#02/05/2025#,1,10,6,-60");
    AddRow(1, 500, "#03/05/2025#,2,5,8,40");
    AddRow(2, 501, "#03/05/2025#,1,1,100,-100");
    AddRow(2, 501, "#04/05/2025#,2,1,120,120");
    Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (500,#01/05/2025#,5)");
    Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (500,#11/20/2026#,9)");
    ShowWindow();
    window_->resize(1400, 900);
    Trigger("mnuViewHoldings");
  }
  void AddRow(int account, int payee, const std::string& values) {
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,[Date],[Action],"
        "Shares,Price,[Amount],BankChk,BankRec) VALUES (" +
        std::to_string(account) + ",1,1," + std::to_string(payee) + "," + values + ",0,0)");
  }
  SortedTable& List() { return WindowTest::Find<SortedTable>("lvholding"); }
  std::string Cell(int row, const char* head) {
    const QAbstractItemModel& model = *List().model();
    for (int column = 0; column < model.columnCount(); ++column) {
      if (model.headerData(column, Qt::Horizontal).toString() != QLatin1String(head)) continue;
      return model.index(row, column).data().toString().toStdString();
    }
    return "no such column";
  }
  template <typename Widget>
  void Pick(const char* box, int index) {
    auto& field = WindowTest::Find<Widget>(box);
    field.setCurrentIndex(index);
    Q_EMIT field.activated(index);
  }
  int Lines(const char* chart) {
    return static_cast<int>(WindowTest::Find<Plot>(chart).chart()->series().size());
  }
};

TEST_F(HoldingsViewTest, WhatIsHeldStandsThereWithItsFiguresAndCharts) {
  Start();
  EXPECT_EQ(window_->Shown().name, kHoldingShow);
  ASSERT_EQ(List().model()->rowCount(), 1) << "what is sold out is not held";
  EXPECT_EQ(Cell(0, "Account"), "Broker");
  EXPECT_EQ(Cell(0, "Investment"), "Acme");
  EXPECT_EQ(Cell(0, "Units"), "15.0000");
  EXPECT_EQ(Cell(0, "Average Cost"), "5.5000");
  EXPECT_EQ(Cell(0, "Price"), "9.0000");
  EXPECT_EQ(Cell(0, "Price Date"), "20/11/2026");
  EXPECT_EQ(Cell(0, "Value"), "135.00");
  EXPECT_EQ(Cell(0, "Share"), "100.0 %");
  EXPECT_EQ(Cell(0, "Not Realised"), "52.50");
  EXPECT_EQ(Cell(0, "Realised"), "12.50");
  EXPECT_NE(Cell(0, "Money-Weighted"), "");
  EXPECT_EQ(Lines("chartPrices"), 3) << "prices, what was bought, what was sold";
  EXPECT_EQ(Lines("chartValue"), 1);
  EXPECT_FALSE(WindowTest::Find<QAction>("mnuHoldingEdit").isEnabled());
  List().selectRow(0);
  EXPECT_TRUE(WindowTest::Find<QAction>("mnuHoldingEdit").isEnabled());
}

TEST_F(HoldingsViewTest, ThePersonChoosesCostsAccountDaysAndWhatIsSoldOut) {
  Start();
  Pick<QComboBox>("cmbCostMethod", 1);
  EXPECT_EQ(Cell(0, "Realised"), "15.00");
  EXPECT_EQ(Settings(machine_.registry).ChoiceText(Setting::CostMethod), "First In First Out");
  WindowTest::Find<QCheckBox>("chkSold").click();
  EXPECT_EQ(List().model()->rowCount(), 2);
  EXPECT_EQ(Cell(1, "Realised"), "20.00");
  EXPECT_EQ(Cell(1, "Price"), "none");
  Pick<QComboBox>("cmbHoldingsAccount", 2);
  ASSERT_EQ(List().model()->rowCount(), 1);
  EXPECT_EQ(Cell(0, "Investment"), "Bolt");
  Pick<QComboBox>("cmbHoldingsAccount", 0);
  const std::string all = Cell(0, "Time-Weighted");
  WindowTest::Find<QCheckBox>("holdings_chkUnset").click();
  EXPECT_NE(Cell(0, "Time-Weighted"), all) << "of the last year alone";
  Trigger("mnuViewPayees");
  Trigger("mnuViewHoldings");
  EXPECT_EQ(List().model()->rowCount(), 2) << "as it was left";
}

TEST_F(HoldingsViewTest, GoingBackBringsItsDaysAgain) {
  Start();
  auto& tick = WindowTest::Find<QCheckBox>("holdings_chkUnset");
  tick.click();
  WindowTest::Find<QDateEdit>("holdings_dtpFrom").setDate(QDate(2026, 3, 1));
  Trigger("mnuViewPayees");
  Trigger("mnuViewHoldings");
  EXPECT_TRUE(tick.isChecked());
  tick.click();
  Trigger("mnuViewPayees");
  Trigger("mnuViewBack");
  EXPECT_FALSE(tick.isChecked());
  Trigger("mnuViewBack");
  Trigger("mnuViewBack");
  EXPECT_EQ(window_->Shown().name, kHoldingShow);
  EXPECT_TRUE(tick.isChecked());
  EXPECT_EQ(window_->Shown().holdings->start.ToIso(), "2026-03-01");
}

TEST_F(HoldingsViewTest, ACorporateActionIsOneStepBack) {
  Start();
  List().selectRow(0);
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmCorporateAction");
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuHoldingAction");
  EXPECT_EQ(Cell(0, "Units"), "30.0000");
  Trigger("mnuEditUndo");
  EXPECT_EQ(Cell(0, "Units"), "15.0000");
}

TEST_F(HoldingsViewTest, WithoutRatesTheTotalSaysWhatItLeavesOut) {
  Start();
  Run("UPDATE tblAccounts SET CurrencyId = 43 WHERE AccountID = 1");
  Trigger("mnuViewRefresh");
  Pick<QComboBox>("cmbHoldingsCurrency", 2);
  EXPECT_EQ(WindowTest::Find<QComboBox>("cmbHoldingsCurrency").currentText(), "All in GBP");
  QStringList texts;
  for (const auto* label : List().parentWidget()->parentWidget()->findChildren<QLabel*>()) {
    texts.append(label->text() + label->toolTip());
  }
  EXPECT_TRUE(texts.join(u'|').contains("without EUR")) << qPrintable(texts.join(u'|'));
}

TEST_F(HoldingsViewTest, AFileWithoutInvestmentsSaysSo) {
  OpenPurse();
  ShowWindow();
  Trigger("mnuViewHoldings");
  EXPECT_EQ(List().model()->rowCount(), 0);
  EXPECT_TRUE(WindowTest::Find<Plot>("chartPrices").IsEmpty());
}

}  // namespace
}  // namespace corvanta
