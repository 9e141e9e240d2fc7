#include "controls/PickBox.h"
#include "invest/InvestTest.h"
#include "invest/rates/FrmCurrency.h"
#include "support/ScriptedRates.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace corvanta {
namespace {

class FrmCurrencyTest : public InvestTest {
 protected:
  void Open(FrmCurrency::Use use, const std::string& currency, double amount = 0) {
    form_ = std::make_unique<FrmCurrency>(use, InvestPlace{Services(), ledger_, rates_, nullptr},
                                          currency);
    if (amount != 0) form_->SetAmount(amount);
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  template <typename Widget>
  Widget& Find(const char* name) {
    return *form_->findChild<Widget*>(QLatin1String(name));
  }
  void Type(const char* field, const QString& text) {
    auto& widget = Find<QWidget>(field);
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&widget, Qt::Key_Delete);
    QTest::keyClicks(&widget, text);
    if (QWidget* completions = QApplication::activePopupWidget()) completions->hide();
  }
  void Press(Qt::Key key) { QTest::keyClick(form_->focusWidget(), key); }
  void Click(const char* button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  QString Text(const char* field) { return Find<QLineEdit>(field).text(); }

  clsCorvanta ledger_{Store(), Services()};
  ScriptedRates rates_{1.25};
  std::unique_ptr<FrmCurrency> form_;
};

TEST_F(FrmCurrencyTest, AnAmountPaidAbroadIsTakenOverWithTheKeyboardAlone) {
  Open(FrmCurrency::Use::TakeOver, "EUR");
  EXPECT_EQ(form_->windowTitle(), "Currency Lookup");
  EXPECT_EQ(Find<QLabel>("lblCurrency").text(), "Euro (EUR)");
  EXPECT_EQ(form_->focusWidget(), &Find<PickBox>("cmbCurrency"));
  Type("cmbCurrency", "usd");
  QTest::keyClick(form_.get(), Qt::Key_Tab);
  EXPECT_EQ(form_->focusWidget()->objectName(), "txtAmountCurrency");
  Type("txtAmountCurrency", "1a00.01");
  EXPECT_EQ(Text("txtAmountCurrency"), "100.01") << "letters are no part of numbers";
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("txtAmount"), "80.008");
  EXPECT_EQ(Find<QLabel>("lblRate").text(), "1 EUR = 1.25 USD");
  EXPECT_EQ(Find<PickBox>("cmbCurrency").currentText(), "U.S. Dollar (USD)");
  EXPECT_TRUE(form_->isVisible());
  Press(Qt::Key_Return);
  EXPECT_FALSE(form_->isVisible());
  ASSERT_TRUE(form_->Result());
  EXPECT_EQ(form_->Result()->amount, 80.01) << "in cents";
  EXPECT_EQ(form_->Result()->amountCurrency, 100.01);
  EXPECT_EQ(form_->Result()->code, "USD");
  EXPECT_EQ(rates_.Asked(), std::vector<std::string>{"EURUSD"});
}

TEST_F(FrmCurrencyTest, WhatWasTypedSinceIsConvertedBeforeItIsTakenOver) {
  Open(FrmCurrency::Use::TakeOver, "EUR", 40);
  EXPECT_EQ(Text("txtAmount"), "40");
  Find<PickBox>("cmbCurrency").SetKey(Find<PickBox>("cmbCurrency").itemData(3).toLongLong());
  Click("cmdCurrency");
  EXPECT_EQ(Text("txtAmountCurrency"), "50");
  Type("txtAmount", "80");
  Click("cmdAccept");
  EXPECT_EQ(form_->Result()->amount, 80);
  EXPECT_EQ(form_->Result()->amountCurrency, 100);
}

TEST_F(FrmCurrencyTest, WhoKnowsTheirRateTypesBothAmounts) {
  Open(FrmCurrency::Use::TakeOver, "EUR");
  Type("cmbCurrency", "U.S. Dollar (USD)");
  Type("txtAmount", "91.50");
  Type("txtAmountCurrency", "100");
  Click("cmdAccept");
  ASSERT_TRUE(form_->Result());
  EXPECT_EQ(form_->Result()->amount, 91.5);
  EXPECT_EQ(form_->Result()->amountCurrency, 100);
  EXPECT_TRUE(rates_.Asked().empty());
}

TEST_F(FrmCurrencyTest, AnotherCurrencyConvertsTheAmountThatWasTyped) {
  Open(FrmCurrency::Use::TakeOver, "EUR");
  Type("cmbCurrency", "usd");
  Type("txtAmountCurrency", "100");
  Click("cmdCurrency");
  rates_.Answer(160);
  Type("cmbCurrency", "jpy");
  EXPECT_EQ(Find<QLabel>("lblRate").text(), "") << "the old rate is not the new currency's";
  Click("cmdAccept");
  ASSERT_TRUE(form_->Result());
  EXPECT_EQ(form_->Result()->amount, 0.63);
  EXPECT_EQ(form_->Result()->amountCurrency, 100);
  EXPECT_EQ(form_->Result()->code, "JPY");
}

TEST_F(FrmCurrencyTest, WarningsLeaveTheFieldsAndTheFocusIsOnTheirs) {
  Open(FrmCurrency::Use::TakeOver, "EUR", 10);
  const auto refused = [&](const char* text, const char* button) {
    Machine().prompts.ExpectTell("Download Currency", text);
    Click(button);
    EXPECT_FALSE(form_->Result());
    return form_->focusWidget()->objectName();
  };
  EXPECT_EQ(refused("Please select a Currency, and an Amount", "cmdCurrency"), "cmbCurrency");
  Type("cmbCurrency", "no such money");
  EXPECT_EQ(refused("Please select a Currency, and an Amount", "cmdAccept"), "cmbCurrency");
  Type("cmbCurrency", "usd");
  rates_.Answer(std::nullopt);
  refused("Could not connect to website", "cmdAccept");
  EXPECT_EQ(Text("txtAmount"), "10");
  EXPECT_EQ(Text("txtAmountCurrency"), "");
  Type("txtAmount", "");
  EXPECT_EQ(refused("Please select a Currency, and an Amount", "cmdCurrency"), "txtAmount");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(FrmCurrencyTest, ARateOfAnotherDayIsShownAndConvertsNothing) {
  Open(FrmCurrency::Use::Tool, "EUR", 10);
  Type("cmbCurrency", "usd");
  rates_.Answer(RateAnswer{1.25, Date::FromIso("2026-11-18"), "an older one"});
  Machine().prompts.ExpectTell("Download Currency", "Could not connect to website");
  Click("cmdCurrency");
  EXPECT_EQ(Text("txtAmountCurrency"), "");
  EXPECT_EQ(Find<QLabel>("lblRate").text(), "Known is 1 EUR = 1.25 USD of 18/11/2026.");
  EXPECT_EQ(form_->focusWidget()->objectName(), "cmdSources") << "where something can be done";
  rates_.Answer(RateAnswer{1, std::nullopt, "The answer held no rate."});
  Machine().prompts.ExpectTell("Download Currency", "The answer held no rate.");
  Click("cmdCurrency");
  EXPECT_EQ(Text("txtAmountCurrency"), "10");
}

TEST_F(FrmCurrencyTest, AsAToolItTakesNothingOver) {
  Open(FrmCurrency::Use::Tool, "");
  EXPECT_EQ(Find<QLabel>("lblCurrency").text(), "British Pound (GBP)") << "the locale's own";
  EXPECT_EQ(form_->findChild<QPushButton*>("cmdAccept"), nullptr);
  Type("cmbCurrency", "usd");
  Type("txtAmount", "4");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("txtAmountCurrency"), "5");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_FALSE(form_->Result());
}

}  // namespace
}  // namespace corvanta
