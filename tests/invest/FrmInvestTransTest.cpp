#include "controls/ChoiceRow.h"
#include "controls/DateField.h"
#include "controls/PickBox.h"
#include "invest/FrmInvestTrans.h"
#include "invest/InvestEditorTest.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "support/DialogTest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include <tuple>

namespace corvanta {
namespace {

class FrmInvestTransTest : public DialogTest<InvestEditorTest> {
 protected:
  [[nodiscard]] InvestPlace Place() { return {Services(), ledger_, rates_, nullptr}; }
  void Open(std::int64_t key, const InvestTransRequest& request = {}) {
    dialog_ = std::make_unique<FrmInvestTrans>(request, Place());
    ASSERT_TRUE(dialog_->Open(key));
    Show(*dialog_);
  }
  void OpenNew(const char* action) {
    Open(0, {0, broker_, acme_, {}});
    Choose(action);
  }
  void Choose(const char* action) {
    auto& box = Find<QComboBox>(*dialog_, "cmbAction");
    box.setCurrentIndex(box.findText(QLatin1String(action)));
  }
  // Types into the field and leaves it.
  void Enter(const char* field, const char* text) {
    Type(*dialog_, field, text);
    Find<QWidget>(*dialog_, "txtDescription").setFocus();
  }
  [[nodiscard]] QString Text(const char* name) { return Find<QLineEdit>(*dialog_, name).text(); }
  [[nodiscard]] std::string Enabled() {
    std::string names;
    for (const char* name : {"txtDividend", "txtShares", "txtPrice", "txtCommission", "txtTotal"}) {
      if (Find<QWidget>(*dialog_, name).isEnabled()) names += std::string(name + 3) + ' ';
    }
    return names;
  }
  void ExpectRefused(const char* text, const char* field) {
    Find<QWidget>(*dialog_, "txtDescription").setFocus();
    Prompt().ExpectTell("Save Warning", text);
    Click(*dialog_, "cmdAccept");
    EXPECT_EQ(Prompt().Shown().back().icon, Icon::Information) << text;
    EXPECT_EQ(FocusOf(*dialog_), field) << text;
    EXPECT_TRUE(dialog_->isVisible()) << text;
  }

  std::unique_ptr<FrmInvestTrans> dialog_;
};

TEST_F(FrmInvestTransTest, TheActionSaysWhichFiguresThereAre) {
  Open(0);
  const auto& actions = Find<QComboBox>(*dialog_, "cmbAction");
  EXPECT_EQ(actions.currentIndex(), -1);
  QStringList names;
  for (int i = 0; i < actions.count(); ++i) {
    names.append(actions.itemText(i));
    EXPECT_EQ(actions.itemData(i).toInt(), i + 1);
  }
  EXPECT_EQ(names.join(u'|'), "Buy|Sell|Dividend|Reinvest Dividend|Add Shares|Remove Shares");
  EXPECT_EQ(Enabled(), "Dividend Shares Price Commission Total ");
  for (const auto& [action, enabled] :
       {std::pair("Buy", "Shares Price Commission Total "),
        {"Dividend", "Dividend Commission Total "},
        {"Sell", "Shares Price Commission Total "},
        {"Add Shares", "Shares "},
        {"Reinvest Dividend", "Dividend Shares Price Commission Total "},
        {"Remove Shares", "Shares "}}) {
    for (const char* field : {"txtDividend", "txtShares", "txtPrice", "txtCommission"}) {
      Find<QLineEdit>(*dialog_, field).setText("3");
    }
    Choose(action);
    EXPECT_EQ(Enabled(), enabled) << action;
    for (const char* field : {"txtDividend", "txtShares", "txtPrice", "txtCommission"}) {
      const bool isUsed = std::string(enabled).find(field + 3) != std::string::npos;
      EXPECT_EQ(Text(field), isUsed ? "3.0000" : "0.0000") << action << ' ' << field;
    }
  }
}

TEST_F(FrmInvestTransTest, WorkedFigures) {
  struct Case {
    const char* action;
    std::vector<std::pair<const char*, const char*>> typed;
    const char* total;
    double amount;
    const char* category;
  };
  const Case kCases[] = {
      {"Buy",
       {{"txtShares", "10"}, {"txtPrice", "5"}, {"txtCommission", "2"}},
       "52.0000",
       -52,
       "Debit"},
      {"Sell",
       {{"txtShares", "10"}, {"txtPrice", "5"}, {"txtCommission", "2"}},
       "48.0000",
       48,
       "Credit"},
      {"Dividend", {{"txtDividend", "30"}, {"txtCommission", "1"}}, "29.0000", 29, "Credit"},
      {"Reinvest Dividend",
       {{"txtDividend", "100"}, {"txtShares", "9"}, {"txtPrice", "10"}, {"txtCommission", "5"}},
       "5.0000",
       5,
       "Credit"},
      {"Add Shares", {{"txtShares", "7"}}, "0.0000", 0, "Credit"},
      {"Remove Shares", {{"txtShares", "7"}}, "0.0000", 0, "Debit"}};
  for (const Case& each : kCases) {
    OpenNew(each.action);
    for (const auto& [field, text] : each.typed) Enter(field, text);
    EXPECT_EQ(Text("txtTotal"), each.total) << each.action;
    Click(*dialog_, "cmdAccept");
    EXPECT_FALSE(dialog_->isVisible()) << each.action;
    const TransactionDetails row = Read(dialog_->SavedKey());
    EXPECT_EQ(row.amount, each.amount) << each.action;
    EXPECT_EQ(row.category, each.category) << each.action;
    EXPECT_EQ(row.payment, "Import") << each.action;
    EXPECT_EQ(row.payeeId, acme_);
    EXPECT_EQ(row.date, Machine().clock.Today());
  }
}

TEST_F(FrmInvestTransTest, ADividendBelowItsCommissionIsRefused) {
  OpenNew("Dividend");
  Enter("txtCommission", "1");
  EXPECT_EQ(Text("txtTotal"), "-1.0000");
  ExpectRefused("Total can not be negative.", "txtTotal");
  Enter("txtTotal", "1,000,000,000,000.01");
  ExpectRefused("Total is too large", "txtTotal");
  Enter("txtTotal", "1000000000000");
  Click(*dialog_, "cmdAccept");
  EXPECT_EQ(Read(dialog_->SavedKey()).amount, 1e12);
}

TEST_F(FrmInvestTransTest, RulesAreAskedInTheirOrder) {
  Open(0);
  ExpectRefused("You need to select an Account", "cmbAccount");
  Find<PickBox>(*dialog_, "cmbAccount").SetKey(euro_);
  CloseAccount(euro_);
  ExpectRefused("This Account is closed, investments cannot be added", "cmbAccount");
  Type(*dialog_, "cmbAccount", "broker");
  ExpectRefused("You need to select an Investment", "cmbInvestment");
  Type(*dialog_, "cmbInvestment", "acme's works");
  ExpectRefused("You need to select an Investment Action", "cmbAction");
  Choose("Buy");
  Find<QLineEdit>(*dialog_, "txtShares").clear();
  Find<QLineEdit>(*dialog_, "txtTotal").clear();
  Type(*dialog_, "txtDescription", "  gift ");
  Click(*dialog_, "cmdAccept");
  const TransactionDetails row = Read(dialog_->SavedKey());
  EXPECT_EQ(row.accountId, broker_);
  EXPECT_EQ(row.shares, 0) << "empty counts as nothing";
  EXPECT_EQ(row.description, "gift");
  EXPECT_EQ(row.status, (StatusFlags{0, 0}));
}

TEST_F(FrmInvestTransTest, KeysAndTextsThatAreNoFigures) {
  OpenNew("Buy");
  for (const char* field : {"txtShares", "txtPrice", "txtCommission", "txtTotal"}) {
    Type(*dialog_, field, "-1.2.5x");
    EXPECT_EQ(Text(field), "1.25") << field << ": no sign, one separator";
    Find<QWidget>(*dialog_, "txtDescription").setFocus();
    EXPECT_EQ(Text(field), "1.2500") << field;
    Find<QLineEdit>(*dialog_, field).setFocus();
    Find<QLineEdit>(*dialog_, field).selectAll();
    QTest::keyClicks(&Find<QLineEdit>(*dialog_, field), ".5");
    EXPECT_EQ(Text(field), ".5") << "what is chosen is typed over";
    for (const char* pasted : {"-4", "many", "(3)"}) {
      Find<QLineEdit>(*dialog_, field).setFocus();
      Find<QLineEdit>(*dialog_, field).setText(QLatin1String(pasted));
      Find<QWidget>(*dialog_, "txtDescription").setFocus();
      EXPECT_EQ(Text(field), "0.0000") << field << ' ' << pasted;
    }
  }
}

TEST_F(FrmInvestTransTest, TheTotalFollowsTheFiguresThatChange) {
  OpenNew("Buy");
  Enter("txtShares", "10");
  Enter("txtPrice", "5");
  Enter("txtCommission", "2");
  Choose("Sell");
  EXPECT_EQ(Text("txtTotal"), "48.0000");
  Enter("txtTotal", "47.5");
  for (const char* field : {"txtShares", "txtPrice", "txtCommission"}) {
    Find<QWidget>(*dialog_, field).setFocus();
  }
  Find<QWidget>(*dialog_, "txtDescription").setFocus();
  EXPECT_EQ(Text("txtTotal"), "47.5000") << "passing through changes nothing";
  Choose("Buy");
  EXPECT_EQ(Text("txtTotal"), "47.5000");
  Type(*dialog_, "txtPrice", "6");
  QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Read(dialog_->SavedKey()).amount, -62) << "Enter leaves the field, too";
}

TEST_F(FrmInvestTransTest, FiguresHaveTheDecimalsOfTheSetting) {
  Machine().registry.Write(Hive::CurrentUser, "Software\\Corvanta 2.0\\Settings", "NoDecimal", "2");
  OpenNew("Buy");
  Enter("txtShares", "1234.5");
  Enter("txtPrice", "3.333");
  EXPECT_EQ(Text("txtShares"), "1,234.50");
  EXPECT_EQ(Text("txtPrice"), "3.33");
  EXPECT_EQ(Text("txtTotal"), "4,110.89") << "1,234.5 at 3.33, rounded as it is shown";
}

TEST_F(FrmInvestTransTest, AnExistingRowIsShownAndChanged) {
  const std::int64_t key = Buy(broker_);
  Store().Execute("UPDATE tblTransactions SET BankChk = 1, Shares = 10.123456");
  Open(key);
  EXPECT_EQ(dialog_->windowTitle(), "Edit Investment Transaction");
  EXPECT_EQ(Find<PickBox>(*dialog_, "cmbAccount").currentText(), "Broker");
  EXPECT_EQ(Find<PickBox>(*dialog_, "cmbInvestment").currentText(), "Acme's Works");
  EXPECT_EQ(Find<QComboBox>(*dialog_, "cmbAction").currentText(), "Buy");
  EXPECT_EQ(Text("txtTotal"), "52.0000") << "without its sign";
  EXPECT_EQ(Find<QLabel>(*dialog_, "lblCurrency").text(), "GBP");
  EXPECT_TRUE(Find<QRadioButton>(*dialog_, "opPayment1").isChecked());
  Find<QRadioButton>(*dialog_, "opPayment2").click();
  Click(*dialog_, "cmdAccept");
  const TransactionDetails row = Read(key);
  EXPECT_EQ(row.status, (StatusFlags{1, 1}));
  EXPECT_EQ(row.shares, 10.123456) << "what is not touched keeps its digits";
  EXPECT_EQ(row.amount, -52);
}

TEST_F(FrmInvestTransTest, KeywordsAndFilesBelongToAnExistingRow) {
  Open(0);
  EXPECT_FALSE(Find<QPushButton>(*dialog_, "cmdKeywords").isVisible());
  Open(Buy(broker_));
  InNextDialog([](QDialog& dialog) {
    Type(dialog, "txtKeyword", "Tax");
    Click(dialog, "cmdAdd");
    Click(dialog, "cmdAccept");
  });
  Click(*dialog_, "cmdKeywords");
  EXPECT_EQ(Find<QPushButton>(*dialog_, "cmdKeywords").text(), "&Keywords (1)...");
  EXPECT_TRUE(dialog_->IsChanged());
  std::string opened;
  InNextDialog([&](QDialog& dialog) { opened = dialog.objectName().toStdString(); });
  Click(*dialog_, "cmdAttachments");
  EXPECT_EQ(opened, "FrmAttachments");
}

TEST_F(FrmInvestTransTest, AnInvestmentWithoutACurrencyIsStillTheRows) {
  const std::int64_t key = Buy(broker_);
  Store().Execute("UPDATE tblPayees SET CurrencyID = 0 WHERE PayeeID = " + std::to_string(acme_));
  Open(key);
  EXPECT_EQ(Find<PickBox>(*dialog_, "cmbInvestment").currentText(), "Acme's Works");
  Click(*dialog_, "cmdAccept");
  EXPECT_FALSE(dialog_->isVisible());
}

TEST_F(FrmInvestTransTest, NewDeleteAndGoingOn) {
  const std::int64_t key = Buy(broker_);
  Open(key);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  Click(*dialog_, "cmdDelete");
  EXPECT_TRUE(dialog_->isVisible());
  Click(*dialog_, "cmdNew");
  EXPECT_EQ(dialog_->windowTitle(), "Add Investment Transaction");
  EXPECT_FALSE(Find<QPushButton>(*dialog_, "cmdDelete").isVisible());
  EXPECT_EQ(Text("txtShares"), "0.0000");
  EXPECT_EQ(Find<QComboBox>(*dialog_, "cmbAction").currentIndex(), -1);
  Choose("Add Shares");
  Enter("txtShares", "4");
  QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return, Qt::ControlModifier);
  EXPECT_TRUE(dialog_->isVisible());
  EXPECT_EQ(NoteOf(*dialog_), "“Add Shares, Acme's Works” was saved.");
  EXPECT_EQ(Find<PickBox>(*dialog_, "cmbAccount").currentText(), "Broker") << "the next one's, too";
  EXPECT_EQ(Count("tblTransactions"), 2);
  Open(key);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(*dialog_, "cmdDelete");
  EXPECT_FALSE(dialog_->isVisible());
  EXPECT_EQ(Count("tblTransactions"), 1);
}

TEST_F(FrmInvestTransTest, AnInvestmentIsAddedOnTheWay) {
  Open(0, {0, broker_, 0, {}});
  EXPECT_EQ(FocusOf(*dialog_), "cmbInvestment");
  InNextDialog([](QDialog& investment) {
    EXPECT_EQ(investment.objectName(), "FrmInvest");
    Type(investment, "txtSymbol", "NEW");
    Type(investment, "txtInvestment", "New Works");
    Find<PickBox>(investment, "cmbDataSource").SetKey(kByHand);
    Click(investment, "cmdAccept");
  });
  Click(*dialog_, "cmdAddInvest");
  EXPECT_EQ(Find<PickBox>(*dialog_, "cmbInvestment").currentText(), "New Works");
  EXPECT_TRUE(dialog_->IsChanged());
}

TEST_F(FrmInvestTransTest, ItDoesNotOpenInVain) {
  const std::int64_t key = Buy(euro_);
  CloseAccount(euro_);
  Prompt().ExpectTell("Amend Item", kAccountClosed);
  EXPECT_FALSE(OpenInvestTrans({key, 0, 0, {}}, Place()).isChanged);
  EXPECT_TRUE(OpenInvestTrans({999, 0, 0, {}}, Place()).isChanged) << "it is gone";
  Store().Execute("DELETE FROM tblTransactions");
  Store().Execute("DELETE FROM tblAccounts");
  Prompt().ExpectTell("Please Add Account",
                      "There are no Accounts set up. Please add an Account to start");
  EXPECT_FALSE(OpenInvestTrans({0, 0, 0, {}}, Place()).isChanged);
}

}  // namespace
}  // namespace corvanta
