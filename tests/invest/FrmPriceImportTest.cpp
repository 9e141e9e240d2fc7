#include "controls/ListTable.h"
#include "exchange/csv/SavedMappings.h"
#include "invest/InvestTest.h"
#include "invest/prices/FrmHistory.h"
#include "ledger/investments/PriceBook.h"
#include "support/DialogTest.h"
#include "support/ScriptedRates.h"

#include <QComboBox>
#include <QLineEdit>

namespace corvanta {
namespace {

class FrmPriceImportTest : public DialogTest<InvestTest> {
 protected:
  FrmPriceImportTest() {
    Store().Execute("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (50,'Telecom',1)");
  }
  std::string File(const std::string& text) { return Machine().folder.Write("prices.csv", text); }

  clsCorvanta ledger_{Store(), Services()};
  ScriptedRates rates_;
  FrmHistory history_{{Services(), ledger_, rates_, nullptr}, 50};
};

TEST_F(FrmPriceImportTest, AFileIsShownAsItWillBeReadAndImported) {
  Show(history_);
  Machine().prompts.ExpectOpenFile(
      "Select File to Import",
      File("Day;Close;Adj\n18.11.2026;3,5;1\n19.11.2026;4,25;2\n20.11.2026;x;3\n"));
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Import Prices");
    auto& list = Find<ListTable>(dialog, "lvRead");
    ASSERT_EQ(list.model()->rowCount(), 2);
    EXPECT_EQ(list.model()->index(1, 0).data().toString(), "19/11/2026");
    EXPECT_EQ(list.model()->index(1, 1).data().toString(), "4.2500");
    EXPECT_NE(NoteOf(dialog).indexOf("in line 4: \"x\" is no price."), -1);
    auto& column = Find<QComboBox>(dialog, "cmbColPrice");
    column.setCurrentIndex(0);
    Q_EMIT column.activated(0);
    EXPECT_FALSE(Find<QPushButton>(dialog, "cmdAccept").isEnabled());
    column.setCurrentIndex(3);
    Q_EMIT column.activated(3);
    EXPECT_EQ(list.model()->rowCount(), 3);
    Click(dialog, "cmdAccept");
  });
  Click(history_, "cmdImport");
  EXPECT_EQ(Find<ListTable>(history_, "lvHistory").model()->rowCount(), 3);
  EXPECT_EQ(ledger_.Prices().LatestPrice(50)->price, 3);
  EXPECT_TRUE(history_.IsChanged());
}

TEST_F(FrmPriceImportTest, AMappingIsSavedAndFoundAgainByTheHeadings) {
  Show(history_);
  const std::string file = File("Day;Close;Adj\n18.11.2026;3,5;1,25\n");
  Machine().prompts.ExpectOpenFile("Select File to Import", file);
  InNextDialog([this](QDialog& dialog) {
    auto& column = Find<QComboBox>(dialog, "cmbColPrice");
    column.setCurrentIndex(3);
    Q_EMIT column.activated(3);
    Machine().prompts.ExpectText("Import Prices", "Name of the mapping:", "Adjusted");
    Click(dialog, "cmdSaveMapping");
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbMapping").currentText(), "Adjusted");
    EXPECT_EQ(NoteOf(dialog), "The mapping “Adjusted” was saved.");
  });
  Click(history_, "cmdImport");
  EXPECT_TRUE(SavedMappings(Machine().registry).Names().empty()) << "bank files have their own";
  Machine().prompts.ExpectOpenFile("Select File to Import", file);
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbMapping").currentText(), "Adjusted");
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbColPrice").currentIndex(), 3);
    EXPECT_EQ(Find<ListTable>(dialog, "lvRead").model()->index(0, 1).data().toString(), "1.2500");
  });
  Click(history_, "cmdImport");
}

TEST_F(FrmPriceImportTest, WhatIsNoTextIsRefusedInWords) {
  Show(history_);
  Machine().prompts.ExpectOpenFile("Select File to Import", File(std::string("\x89PNG\0\0\0x", 8)));
  Machine().prompts.ExpectTell("Import Prices", ScriptedPrompts::kAnyText);
  Click(history_, "cmdImport");
  EXPECT_FALSE(history_.IsChanged());
}

}  // namespace
}  // namespace corvanta
