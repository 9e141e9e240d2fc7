#include "controls/ListTable.h"
#include "invest/InvestTest.h"
#include "invest/prices/FrmHistory.h"
#include "ledger/investments/PriceBook.h"
#include "platform/Settings.h"
#include "support/DialogTest.h"
#include "support/ScriptedRates.h"

#include <QHeaderView>
#include <QLineEdit>

namespace corvanta {
namespace {

class FrmHistoryTest : public DialogTest<InvestTest> {
 protected:
  FrmHistoryTest() {
    Store().Execute("UPDATE tblStockData SET [URL] = 'http://quotes.test/STOCK' WHERE DataID = 2");
    Store().Execute(
        "INSERT INTO tblPayees (PayeeID,Payee,[Symbol],CurrencyID,InvestCurrencyID,DataID,"
        "[Conversion],Investment) VALUES (50,'Telecom','X',17,17,2,1,1)");
    ledger_.Prices().StorePrice(50, *Date::FromIso("2026-11-18"), 3.25);
    ledger_.Prices().StorePrice(50, *Date::FromIso("2026-11-19"), 1234.5);
  }
  InvestPlace Place() { return {Services(), ledger_, rates_, nullptr}; }
  static QAbstractItemModel& Rows(const QWidget& dialog) {
    return *Find<ListTable>(dialog, "lvHistory").model();
  }
  static QString Cell(const QWidget& dialog, int row, int column) {
    return Rows(dialog).index(row, column).data().toString();
  }
  static QString Text(const QWidget& dialog, const char* field) {
    return Find<QLineEdit>(dialog, field).text();
  }

  clsCorvanta ledger_{Store(), Services()};
  ScriptedRates rates_;
};

TEST_F(FrmHistoryTest, ListsThePricesNewestFirstAndTakesTheChosenOne) {
  FrmHistory dialog(Place(), 50);
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Stock Price History");
  EXPECT_LE(dialog.minimumSizeHint().height(), 500) << "on a small screen";
  const auto head = [&](int column) {
    return Rows(dialog).headerData(column, Qt::Horizontal).toString();
  };
  EXPECT_EQ(head(0) + head(1) + head(2), "InvestmentDatePrice");
  ASSERT_EQ(Rows(dialog).rowCount(), 2);
  EXPECT_EQ(Cell(dialog, 0, 0), "Telecom");
  EXPECT_EQ(Cell(dialog, 0, 1), "19/11/2026");
  EXPECT_EQ(Cell(dialog, 0, 2), "1,234.5000");
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdDelete").isEnabled());
  Find<ListTable>(dialog, "lvHistory").selectRow(1);
  EXPECT_TRUE(Find<QPushButton>(dialog, "cmdDelete").isEnabled());
  EXPECT_EQ(Text(dialog, "dtStock"), "18/11/2026");
  EXPECT_EQ(Text(dialog, "txtPrice"), "3.2500");
  Click(dialog, "cmdNew");
  EXPECT_EQ(Text(dialog, "txtPrice"), "0.0000");
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdDelete").isEnabled());
}

TEST_F(FrmHistoryTest, TwoEntriesForADayLeaveTheSecondPrice) {
  FrmHistory dialog(Place(), 50);
  Show(dialog);
  Type(dialog, "dtStock", "20/11/2026");
  Machine().prompts.ExpectTell("Save Warning", "Please enter a valid value for Price");
  Click(dialog, "cmdAccept");
  EXPECT_EQ(FocusOf(dialog), "txtPrice");
  Type(dialog, "txtPrice", "7.123456");
  Find<QLineEdit>(dialog, "dtStock").setFocus();
  EXPECT_EQ(Text(dialog, "txtPrice"), "7.1235");
  Type(dialog, "txtPrice", "(-");
  Find<QLineEdit>(dialog, "dtStock").setFocus();
  EXPECT_EQ(Text(dialog, "txtPrice"), "0.0000") << "what is no number becomes 0";
  Type(dialog, "txtPrice", "7");
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
  Type(dialog, "txtPrice", "8");
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Rows(dialog).rowCount(), 3);
  EXPECT_EQ(Cell(dialog, 0, 2), "8.0000");
  EXPECT_EQ(ledger_.Prices().LatestPrice(50)->price, 8);
  EXPECT_TRUE(dialog.IsChanged());
  Type(dialog, "dtStock", "31/02/2026");
  Machine().prompts.ExpectTell("Save Warning", "You need to enter a valid Date");
  Click(dialog, "cmdAccept");
  EXPECT_EQ(Rows(dialog).rowCount(), 3);
}

TEST_F(FrmHistoryTest, DeletesEverySelectedPriceAfterAQuestion) {
  FrmHistory dialog(Place(), 50);
  Show(dialog);
  auto& list = Find<ListTable>(dialog, "lvHistory");
  list.setFocus();
  list.selectAll();
  const char* question = "Do you want to delete all selected items?";
  Machine().prompts.ExpectAsk("Delete Items?", question, false);
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(Rows(dialog).rowCount(), 2);
  Machine().prompts.ExpectAsk("Delete Items?", question, true);
  Click(dialog, "cmdDelete");
  EXPECT_EQ(Rows(dialog).rowCount(), 0);
  EXPECT_EQ(Text(dialog, "txtPrice"), "");
  EXPECT_FALSE(ledger_.Prices().LatestPrice(50));
}

TEST_F(FrmHistoryTest, DownloadsTodaysPriceOrSaysWhyThereIsNone) {
  FrmHistory dialog(Place(), 50);
  Show(dialog);
  Machine().prompts.ExpectTell("Download Warning", "Could not connect to website");
  Click(dialog, "cmdDownload");
  EXPECT_EQ(NoteOf(dialog), "Yahoo Stock: no network.");
  EXPECT_EQ(Rows(dialog).rowCount(), 2);
  EXPECT_EQ(FocusOf(dialog), "cmdSources") << "the way to what can be done about it";
  Machine().download.Answer("http://quotes.test/X", "X,9.5,\"a\",\"b\"");
  Click(dialog, "cmdDownload");
  EXPECT_EQ(Cell(dialog, 0, 2), "9.5000");
  EXPECT_EQ(Text(dialog, "txtPrice"), "9.5000");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(FrmHistoryTest, KeepsTheWidthsOfItsColumns) {
  {
    FrmHistory dialog(Place(), 50);
    Show(dialog);
    Find<ListTable>(dialog, "lvHistory").horizontalHeader()->resizeSection(1, 120);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  }
  EXPECT_EQ(Settings(Machine().registry).Text(Setting::chH), "0|120|0");
  FrmHistory again(Place(), 50);
  EXPECT_EQ(Find<ListTable>(again, "lvHistory").Widths(), "0|120|0");
}

}  // namespace
}  // namespace corvanta
