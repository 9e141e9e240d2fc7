#include "controls/ListTable.h"
#include "invest/InvestTest.h"
#include "invest/prices/FrmSource.h"
#include "invest/prices/FrmSources.h"
#include "invest/rates/FrmRates.h"
#include "ledger/investments/RateBook.h"
#include "support/DialogTest.h"
#include "support/ScriptedRates.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTextEdit>

namespace corvanta {
namespace {

class FrmSourcesTest : public DialogTest<InvestTest> {
 protected:
  InvestPlace Place() { return {Services(), ledger_, rates_, nullptr}; }
  static QString Chosen(const QWidget& dialog, const char* list, int column = 0) {
    return Find<ListTable>(dialog, list).currentIndex().siblingAtColumn(column).data().toString();
  }
  static void Choose(const QWidget& dialog, const char* box, const QString& text) {
    auto& combo = Find<QComboBox>(dialog, box);
    combo.setCurrentIndex(combo.findText(text));
    Q_EMIT combo.activated(combo.currentIndex());
  }

  clsCorvanta ledger_{Store(), Services()};
  ScriptedRates rates_;
};

TEST_F(FrmSourcesTest, AnOwnSourceIsEnteredTriedAndAskedFirst) {
  FrmSources dialog(Place(), 0);
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Data Sources");
  EXPECT_EQ(Chosen(dialog, "lvSources"), "Yahoo Currency");
  EXPECT_EQ(Chosen(dialog, "lvSources", 3), "Asked for rates");
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdFirst").isEnabled());
  Machine().download.Answer("https://z.test/?f=EUR&t=USD&k=s3cret", R"({"rates":{"USD":1.25}})");
  InNextDialog([this](QDialog& editor) {
    EXPECT_EQ(editor.windowTitle(), "Add Data Source");
    Type(editor, "txtName", "Zebra");
    Choose(editor, "cmbType", "Exchange rates");
    EXPECT_EQ(Find<QLineEdit>(editor, "txtKey").text(), "CURRENCY");
    Choose(editor, "cmbKind", "JSON");
    EXPECT_FALSE(Find<QLineEdit>(editor, "txtStart").isEnabled());
    EXPECT_TRUE(Find<QLineEdit>(editor, "txtField").isEnabled());
    Type(editor, "txtURL", "https://z.test/?f=FROM&t=TO&k=APIKEY");
    Type(editor, "txtOwnKey", "s3cret");
    Machine().prompts.ExpectTell("Save Warning", ScriptedPrompts::kAnyText);
    Click(editor, "cmdAccept");
    EXPECT_EQ(FocusOf(editor), "txtField");
    Type(editor, "txtField", "/rates/TO");
    Machine().prompts.ExpectTell("Download Warning",
                                 "Enter the codes of two currencies to test with: EUR USD");
    Click(editor, "cmdTest");
    Type(editor, "txtTest", "eurusd");
    Click(editor, "cmdTest");
    EXPECT_EQ(Find<QTextEdit>(editor, "txtAnswer").toPlainText(), R"({"rates":{"USD":1.25}})");
    EXPECT_EQ(Find<QLabel>(editor, "lblFound").text(), "The value is 1.25.");
    Click(editor, "cmdAccept");
  });
  Click(dialog, "cmdNew");
  EXPECT_TRUE(dialog.IsChanged());
  EXPECT_EQ(Chosen(dialog, "lvSources"), "Zebra");
  EXPECT_EQ(Chosen(dialog, "lvSources", 2), "JSON");
  Click(dialog, "cmdFirst");
  EXPECT_EQ(Chosen(dialog, "lvSources"), "1. Zebra");
  EXPECT_EQ(Chosen(dialog, "lvSources", 3), "Asked for rates");
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdFirst").isEnabled());
}

TEST_F(FrmSourcesTest, AReadyMadeOneIsProposedAndSaidToBeUntried) {
  FrmSources dialog(Place(), 0);
  Show(dialog);
  Machine().prompts.ExpectChoose("Ready-Made Sources", ScriptedPrompts::kAnyText, 0);
  InNextDialog([](QDialog& editor) {
    EXPECT_EQ(Find<QLineEdit>(editor, "txtName").text(), "European Central Bank");
    EXPECT_NE(NoteOf(editor).indexOf("could not be tried"), -1);
    Click(editor, "cmdAccept");
  });
  Click(dialog, "cmdPreset");
  EXPECT_EQ(Chosen(dialog, "lvSources"), "European Central Bank");
  EXPECT_EQ(Chosen(dialog, "lvSources", 3), "Asked for rates");
  Machine().prompts.ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(dialog, "cmdDelete");
  EXPECT_EQ(SourceEditor(ledger_, Services()).AskedForRates(), 1);
}

TEST_F(FrmSourcesTest, OneOfTheProgramSaysThatItMayBeWrittenAnew) {
  FrmSources dialog(Place(), 4);
  Show(dialog);
  EXPECT_EQ(Chosen(dialog, "lvSources"), "Google Finance Stock");
  InNextDialog([](QDialog& editor) {
    EXPECT_EQ(Find<QLineEdit>(editor, "txtStart").text(), "class=\"pr\"");
    EXPECT_EQ(Find<QLineEdit>(editor, "txtOccur").text(), "1");
    EXPECT_NE(NoteOf(editor).indexOf("Validate"), -1);
    Type(editor, "txtOccur", "2");
    Click(editor, "cmdAccept");
  });
  QTest::keyClick(&Find<ListTable>(dialog, "lvSources"), Qt::Key_Return);
  EXPECT_EQ(store_.Number("SELECT [Occur] FROM tblStockData WHERE DataID = 4"), 2);
}

TEST_F(FrmSourcesTest, RatesAreEnteredChangedAndDeleted) {
  ledger_.Rates().Keep({0, "EUR", "JPY", *Date::FromIso("2026-11-20"), 160.5, "A service"});
  FrmRates dialog(Place());
  Show(dialog);
  auto& list = Find<ListTable>(dialog, "lvRates");
  ASSERT_EQ(list.model()->rowCount(), 1);
  list.selectRow(0);
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtRate").text(), "160.50");
  Click(dialog, "cmdNew");
  Type(dialog, "cmbFrom", "gbp");
  Machine().prompts.ExpectTell("Save Warning", "A rate is between two different currencies");
  Type(dialog, "cmbTo", "British Pound (GBP)");
  Click(dialog, "cmdAccept");
  Type(dialog, "cmbTo", "usd");
  Machine().prompts.ExpectTell("Save Warning", "Please enter a valid value for Rate");
  Click(dialog, "cmdAccept");
  EXPECT_EQ(FocusOf(dialog), "txtRate");
  Type(dialog, "txtRate", "1.3125");
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
  const auto kept = ledger_.Rates().Latest("GBP", "USD", Machine().clock.Today());
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->rate, 1.3125);
  EXPECT_EQ(kept->source, "Entered");
  EXPECT_EQ(list.model()->rowCount(), 2);
  EXPECT_EQ(Chosen(dialog, "lvRates", 3), "1.3125");
  Machine().prompts.ExpectAsk("Delete Items?", "Do you want to delete all selected items?", true);
  Click(dialog, "cmdDelete");
  EXPECT_EQ(list.model()->rowCount(), 1);
}

TEST_F(FrmSourcesTest, TodaysRateIsFetchedOrTheSourcesAreTheNextThing) {
  FrmRates dialog(Place());
  Show(dialog);
  Machine().prompts.ExpectTell("Save Warning", "You need to select a Currency");
  Click(dialog, "cmdDownload");
  EXPECT_EQ(FocusOf(dialog), "cmbFrom");
  Type(dialog, "cmbFrom", "eur");
  Type(dialog, "cmbTo", "usd");
  Machine().prompts.ExpectTell("Download Currency", "Could not connect to website");
  Click(dialog, "cmdDownload");
  EXPECT_EQ(FocusOf(dialog), "cmdSources");
  EXPECT_EQ(NoteOf(dialog), "Yahoo Currency: no network.");
  AnswerRate("EURUSD", "N/A");
  Machine().prompts.ExpectTell("Download Currency", "The answer of Yahoo Currency held no rate.");
  Click(dialog, "cmdDownload");
  EXPECT_TRUE(ledger_.Rates().All().empty());
  AnswerRate("EURUSD", "1.25");
  Click(dialog, "cmdDownload");
  EXPECT_EQ(Chosen(dialog, "lvRates", 3), "1.25");
  EXPECT_EQ(Chosen(dialog, "lvRates", 4), "Yahoo Currency");
}

}  // namespace
}  // namespace corvanta
