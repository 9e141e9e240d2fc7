#include "controls/PickBox.h"
#include "invest/FrmInvest.h"
#include "invest/InvestEditorTest.h"
#include "support/DialogTest.h"

#include <QLineEdit>

namespace corvanta {
namespace {

class FrmInvestTest : public DialogTest<InvestEditorTest> {
 protected:
  void Open(std::int64_t key) {
    dialog_ = std::make_unique<FrmInvest>(InvestPlace{Services(), ledger_, rates_, nullptr});
    ASSERT_TRUE(dialog_->Open(key));
    Show(*dialog_);
  }
  [[nodiscard]] QString Text(const char* name) { return Find<QLineEdit>(*dialog_, name).text(); }
  [[nodiscard]] QString Chosen(const char* name) {
    return Find<PickBox>(*dialog_, name).currentText();
  }
  void ExpectRefused(const char* text, const char* field, const char* title = "Save Warning") {
    Find<QWidget>(*dialog_, "txtDescription").setFocus();
    Prompt().ExpectTell(title, text);
    Click(*dialog_, "cmdAccept");
    EXPECT_EQ(FocusOf(*dialog_), field) << text;
    EXPECT_TRUE(dialog_->isVisible()) << text;
  }

  std::unique_ptr<FrmInvest> dialog_;
};

TEST_F(FrmInvestTest, ANewOneIsTypedAndSaved) {
  Open(0);
  EXPECT_EQ(dialog_->windowTitle(), "Add Investment");
  EXPECT_FALSE(Find<QPushButton>(*dialog_, "cmdDelete").isVisible());
  EXPECT_EQ(FocusOf(*dialog_), "txtSymbol");
  for (const char* empty :
       {"txtSymbol", "txtInvestment", "txtLastPrice", "txtLastDate", "txtDescription"}) {
    EXPECT_EQ(Text(empty), "") << empty;
  }
  EXPECT_EQ(Text("txtConvert"), "1");
  EXPECT_EQ(Chosen("cmbCurrency"), "Euro (EUR)") << "of the latest account";
  EXPECT_EQ(Chosen("cmbCurrencyInvest"), "Euro (EUR)");
  EXPECT_EQ(Chosen("cmbDataSource"), "");
  ExpectRefused("You need to enter a Symbol", "txtSymbol");
  Type(*dialog_, "txtSymbol", " BLT ");
  ExpectRefused("You need to enter an Investment Name", "txtInvestment");
  Type(*dialog_, "txtInvestment", "Acme's Works");
  Find<PickBox>(*dialog_, "cmbCurrencyInvest").setEditText("");
  ExpectRefused("You need to select an Investment Currency", "cmbCurrencyInvest");
  Find<PickBox>(*dialog_, "cmbCurrencyInvest").SetKey(kPounds);
  Find<PickBox>(*dialog_, "cmbCurrency").setEditText("no such money");
  ExpectRefused("You need to select an Account Currency", "cmbCurrency");
  Find<PickBox>(*dialog_, "cmbCurrency").SetKey(kPounds);
  ExpectRefused("You need to select a Data Source", "cmbDataSource");
  Type(*dialog_, "cmbDataSource", "manual update");
  ExpectRefused("Investment already exists", "txtInvestment", "Duplicate Record");
  Type(*dialog_, "txtInvestment", "Bolt");
  QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(dialog_->isVisible());
  const auto row = Investments().ReadInvestment(dialog_->SavedKey());
  ASSERT_TRUE(row);
  EXPECT_EQ(row->symbol, "BLT");
  EXPECT_EQ(row->dataId, kByHand);
  EXPECT_EQ(row->conversion, 1);
}

TEST_F(FrmInvestTest, TheConversionIsAlwaysAboveNothing) {
  Open(acme_);
  EXPECT_EQ(Text("txtConvert"), "1.0000");
  for (const auto& [typed, shown] : {std::pair("0", "1"),
                                     {"-3", "1"},
                                     {"", "1"},
                                     {"2/0", "1"},
                                     {".01", "0.0100"},
                                     {"1,250.5", "1,250.5000"},
                                     {"0.00001", "0.00001"}}) {
    Type(*dialog_, "txtConvert", typed);
    Find<QWidget>(*dialog_, "txtDescription").setFocus();
    EXPECT_EQ(Text("txtConvert"), shown) << typed;
  }
  Type(*dialog_, "txtConvert", "0");
  QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Investments().ReadInvestment(acme_)->conversion, 1);
}

TEST_F(FrmInvestTest, AnExistingOneShowsItsLastPrice) {
  AddPrice(acme_, "11/02/2026", 1234.5);
  AddPrice(acme_, "10/02/2026", 3);
  Open(acme_);
  EXPECT_EQ(dialog_->windowTitle(), "Edit Investment");
  EXPECT_EQ(Text("txtInvestment"), "Acme's Works");
  EXPECT_EQ(Text("txtLastPrice"), "1,234.5000");
  EXPECT_EQ(Text("txtLastDate"), "02/11/2026");
  EXPECT_TRUE(Find<QLineEdit>(*dialog_, "txtLastPrice").isReadOnly());
  Click(*dialog_, "cmdNew");
  EXPECT_EQ(dialog_->windowTitle(), "Add Investment");
  EXPECT_EQ(Text("txtInvestment") + Text("txtLastPrice") + Text("txtLastDate"), "");
  EXPECT_FALSE(Find<QPushButton>(*dialog_, "cmdDelete").isVisible());
}

TEST_F(FrmInvestTest, DeletingClosesItUnlessItIsNeeded) {
  const std::int64_t row = Buy(broker_);
  Open(acme_);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(*dialog_, "cmdDelete");
  EXPECT_EQ(NoteOf(*dialog_), "“Acme's Works” is still needed and was kept.");
  ledger_.Transactions().DeleteTransaction(row);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(*dialog_, "cmdDelete");
  EXPECT_FALSE(dialog_->isVisible());
  EXPECT_TRUE(dialog_->IsChanged());
}

TEST_F(FrmInvestTest, ThePriceIsDownloadedForWhatIsSaved) {
  Store().Execute("UPDATE tblStockData SET [URL] = 'http://quotes.test/STOCK' WHERE DataID = 2");
  Machine().download.Answer("http://quotes.test/BLT", "\"BLT\",250.00,\"11/20/2026\"\r\n");
  Open(0);
  Prompt().ExpectTell("Save Warning", "You need to enter a Symbol");
  Click(*dialog_, "cmdDownload");
  EXPECT_EQ(FocusOf(*dialog_), "txtSymbol");
  Type(*dialog_, "txtSymbol", "BLT");
  Type(*dialog_, "txtInvestment", "Bolt");
  Find<PickBox>(*dialog_, "cmbDataSource").SetKey(2);
  Type(*dialog_, "txtConvert", "0.01");
  Click(*dialog_, "cmdDownload");
  EXPECT_EQ(Text("txtLastPrice"), "2.5000");
  EXPECT_EQ(Text("txtLastDate"), "21/11/2026");
  EXPECT_EQ(dialog_->windowTitle(), "Edit Investment");
  EXPECT_TRUE(Find<QPushButton>(*dialog_, "cmdDelete").isVisible());
  EXPECT_TRUE(Investments().ReadInvestment(dialog_->SavedKey()));
  Machine().download.Answer("http://quotes.test/BLT", "\"BLT\",N/A,\"11/20/2026\"\r\n");
  Prompt().ExpectTell("Download Warning", ScriptedPrompts::kAnyText);
  Click(*dialog_, "cmdDownload");
  EXPECT_EQ(Text("txtLastPrice"), "2.5000");
  EXPECT_EQ(FocusOf(*dialog_), "cmdSources");
}

TEST_F(FrmInvestTest, ThePriceHistoryIsOfWhatIsSaved) {
  Open(0);
  Prompt().ExpectTell("Save Warning", "You need to enter a Symbol");
  Click(*dialog_, "cmdHistory");
  Type(*dialog_, "txtSymbol", "BLT");
  Type(*dialog_, "txtInvestment", "Bolt");
  Find<PickBox>(*dialog_, "cmbDataSource").SetKey(kByHand);
  InNextDialog([](QDialog& history) {
    EXPECT_EQ(history.objectName(), "FrmHistory");
    Type(history, "txtPrice", "4.5");
    Click(history, "cmdAccept");
  });
  Click(*dialog_, "cmdHistory");
  EXPECT_EQ(Text("txtLastPrice"), "4.5000");
  EXPECT_EQ(dialog_->windowTitle(), "Edit Investment");
}

TEST_F(FrmInvestTest, TheHistoryCanFollowTheEditor) {
  InNextDialog([](QDialog& investment) {
    Type(investment, "txtSymbol", "BLT");
    Type(investment, "txtInvestment", "Bolt");
    Find<PickBox>(investment, "cmbDataSource").SetKey(kByHand);
    InNextDialog([](QDialog& history) {
      EXPECT_EQ(history.objectName(), "FrmHistory");
      Type(history, "txtPrice", "4.5");
      Click(history, "cmdAccept");
    });
    Click(investment, "cmdAccept");
  });
  const InvestResult result = OpenInvest(0, {Services(), ledger_, rates_, nullptr}, true);
  EXPECT_TRUE(result.isChanged);
  EXPECT_EQ(Count("tblHistory Where PayeeID = " + std::to_string(result.savedKey)), 1);
}

TEST_F(FrmInvestTest, LookingUpNeedsASource) {
  Open(0);
  Prompt().ExpectTell("Lookup Warning", "You need to select a Data Source");
  Click(*dialog_, "cmdLookup");
  EXPECT_EQ(FocusOf(*dialog_), "cmbDataSource");
  Find<PickBox>(*dialog_, "cmbDataSource").SetKey(2);
  Click(*dialog_, "cmdLookup");
  EXPECT_EQ(Machine().opener.Opened().size(), 1U);
}

}  // namespace
}  // namespace corvanta
