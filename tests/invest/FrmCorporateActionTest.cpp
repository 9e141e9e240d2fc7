#include "controls/ChoiceRow.h"
#include "controls/ListTable.h"
#include "controls/PickBox.h"
#include "invest/HoldingsTest.h"
#include "invest/holdings/FrmCorporateAction.h"
#include "support/DialogTest.h"
#include "support/ScriptedRates.h"

#include <QCheckBox>
#include <QRadioButton>

namespace corvanta {
namespace {

class CorporateWindow : public DialogTest<HoldingsTest> {
 protected:
  CorporateWindow() {
    Add(InvestAction::Buy, broker_, acme_, Day("2026-01-05"), 10, 12);
    AddPrice(acme_, "2026-01-06", 9);
  }
  std::unique_ptr<FrmCorporateAction> Open() {
    auto form = std::make_unique<FrmCorporateAction>(
        acme_, InvestPlace{store_.platform.Get(), ledger_, rates_, nullptr});
    Show(*form);
    return form;
  }
  static QStringList Rows(const QWidget& form) {
    const QAbstractItemModel& model = *Find<ListTable>(form, "lvRows").model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        cells.append(model.index(row, column).data().toString());
      }
      rows.append(cells.join(u'|'));
    }
    return rows;
  }
  static void Choose(const QWidget& form, const char* kind) {
    QTest::keyClick(&Find<QWidget>(form, kind), Qt::Key_Space);
  }

  std::int64_t broker_ = AddAccount("Broker");
  std::int64_t acme_ = AddInvestment("Acme");
  std::int64_t spun_ = AddInvestment("Spun");
  ScriptedRates rates_;
};

TEST_F(CorporateWindow, TheRowsAreShownBeforeTheyAreWritten) {
  const auto form = Open();
  EXPECT_EQ(form->windowTitle(), "Corporate Action");
  const QStringList split = {"Broker|Acme|Add Shares|10.0000|0.0000", "|Acme|Price||4.5000"};
  EXPECT_EQ(Rows(*form), split) << "two for one, today";
  EXPECT_FALSE(Find<PickBox>(*form, "cmbOther").isEnabled());
  Type(*form, "txtGiven", "1");
  Type(*form, "txtHeld", "5");
  EXPECT_EQ(Rows(*form).size(), 3);
  Find<QCheckBox>(*form, "chkPrice").click();
  const QStringList together = {"Broker|Acme|Remove Shares|10.0000|12.0000",
                                "Broker|Acme|Add Shares|2.0000|60.0000"};
  EXPECT_EQ(Rows(*form), together);
  Type(*form, "txtHeld", "");
  EXPECT_TRUE(Rows(*form).isEmpty()) << "not all is said";
  EXPECT_EQ(store_.Number("Select Count(*) from tblTransactions"), 1);
  Type(*form, "txtHeld", "5");
  Click(*form, "cmdAccept");
  EXPECT_FALSE(form->isVisible());
  EXPECT_TRUE(form->IsChanged());
  EXPECT_EQ(Read(CostMethod::Average).holdings.at(0).units, 2);
}

TEST_F(CorporateWindow, ASpinOffAsksForTheOtherOneAndItsPartOfTheCost) {
  const auto form = Open();
  Choose(*form, "opKind2");
  EXPECT_TRUE(Find<PickBox>(*form, "cmbOther").isEnabled());
  EXPECT_FALSE(Find<QCheckBox>(*form, "chkPrice").isEnabled());
  store_.platform.prompts.ExpectTell(
      "Save Warning", "You need to select another Investment, whose units are given");
  Click(*form, "cmdAccept");
  EXPECT_EQ(FocusOf(*form), "cmbOther");
  EXPECT_TRUE(form->isVisible());
  Type(*form, "cmbOther", "Spun");
  Type(*form, "txtCostPart", "20");
  EXPECT_EQ(Rows(*form).size(), 3);
  EXPECT_EQ(Rows(*form).last(), "Broker|Spun|Add Shares|20.0000|1.2000");
  Click(*form, "cmdAccept");
  EXPECT_EQ(Read(CostMethod::Average).holdings.size(), 2U);
}

}  // namespace
}  // namespace corvanta
