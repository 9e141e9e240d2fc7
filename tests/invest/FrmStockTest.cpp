#include "controls/ListTable.h"
#include "controls/PickBox.h"
#include "invest/InvestTest.h"
#include "invest/prices/FrmStock.h"
#include "platform/Settings.h"
#include "support/DialogTest.h"
#include "support/ScriptedRates.h"

#include <QComboBox>
#include <QLineEdit>

namespace corvanta {
namespace {

class FrmStockTest : public DialogTest<InvestTest> {
 protected:
  FrmStockTest() {
    Store().Execute("UPDATE tblStockData SET [URL] = '" + std::string(kSite) +
                    "STOCK' WHERE DataID = 2");
  }

  [[nodiscard]] std::unique_ptr<FrmStock> Open(WatchMode mode) {
    auto form = std::make_unique<FrmStock>(mode, InvestPlace{Services(), ledger_, rates_, nullptr});
    Show(*form);
    return form;
  }
  static void Choose(const QWidget& form, const char* source) {
    auto& box = Find<QComboBox>(form, "cmbDataSource");
    box.setCurrentIndex(box.findText(QLatin1String(source)));
  }
  static QString Row(const QWidget& form, int row) {
    const QAbstractItemModel& model = *Find<ListTable>(form, "lvLookUp").model();
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      cells.append(model.index(row, column).data().toString());
    }
    return cells.join(u'|');
  }
  static void Tick(const QWidget& form, int row, bool isTicked) {
    QAbstractItemModel& model = *Find<ListTable>(form, "lvLookUp").model();
    model.setData(model.index(row, 0), isTicked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
  }
  void Expect(const char* title, const char* text) { Machine().prompts.ExpectTell(title, text); }
  void AnswerQuote(const std::string& symbol, const std::string& rest) {
    Machine().download.Answer(kSite + symbol, "\"" + symbol + "\"," + rest + "\r\n");
  }
  [[nodiscard]] std::string Kept(std::string_view key, const char* name) {
    return Machine().registry.Read(Hive::CurrentUser, key, name).value_or("none");
  }

  clsCorvanta ledger_{Store(), Services()};
  ScriptedRates rates_{1};
};

TEST_F(FrmStockTest, StocksAreAddedWithTheKeyboardAndFetched) {
  AnswerQuote("ACME", "1234.5678,\"11/20/2026\",\"4:00pm\",-1.25,1,2,3,4");
  AnswerQuote("BETA", "10");
  AnswerQuote("NONE", "N/A,\"N/A\",\"N/A\",N/A");
  const auto form = Open(WatchMode::Stocks);
  EXPECT_EQ(form->windowTitle(), "Stock Lookup");
  Choose(*form, "Yahoo Stock");
  Type(*form, "cmbCurrency", "usd");
  for (const char* symbol : {"acme", "BETA", "none"}) {
    Type(*form, "txtSymbol", symbol);
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(FocusOf(*form), "txtSymbol");
  }
  EXPECT_EQ(Kept(kStocksKey, "Item1"), "acme");
  EXPECT_EQ(Kept(kStocksKey, "Item3"), "none");

  // A line of two fields holds a value neither for a person nor for the watch list.
  Expect("Download Warning", "Invalid Symbol BETA entered");
  Expect("Download Warning", "Invalid Symbol NONE entered");
  Expect("Downloading Rates", "Downloading latest values now complete");
  QTest::keyClick(form->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Row(*form, 0), "acme|1,234.5678|11/20/2026 4:00pm|-1.2500");
  EXPECT_EQ(Row(*form, 1), "BETA|||");
  EXPECT_EQ(Kept(kSettingsKey, "Currency"), "USD");

  // What is not ticked is left alone, and a page has no day.
  Store().Execute("UPDATE tblStockData SET [URL] = '" + std::string(kSite) +
                  "p/STOCK' WHERE DataID = 4");
  Machine().download.Answer(std::string(kSite) + "p/BETA", "<span class=\"pr\"><b>7.5</b>");
  Choose(*form, "Google Finance Stock");
  Tick(*form, 0, false);
  Tick(*form, 2, false);
  const std::size_t before = Downloads();
  Expect("Downloading Rates", "Downloading latest values now complete");
  Click(*form, "cmdDowload");
  EXPECT_EQ(Downloads(), before + 1);
  EXPECT_EQ(Row(*form, 1), "BETA|7.5000||");
}

TEST_F(FrmStockTest, RatesOfTheCurrencyInAreFetched) {
  AnswerRate("EURUSD", "1.25");
  AnswerRate("EURGBP", "0.8");
  const auto form = Open(WatchMode::Currency);
  EXPECT_EQ(form->windowTitle(), "Currency Lookup");
  EXPECT_EQ(Find<QComboBox>(*form, "cmbDataSource").currentText(), "Yahoo Currency");
  Type(*form, "cmbCurrency", "EUR");
  for (const char* code : {"USD", "gbp"}) {
    Type(*form, "cmbSymbol", code);
    Click(*form, "cmdNew");
  }
  EXPECT_EQ(Kept(kCurrencyKey, "Item2"), "GBP");
  Expect("Downloading Rates", "Downloading latest values now complete");
  Click(*form, "cmdDowload");
  EXPECT_EQ(Row(*form, 0), "USD|1.2500|11/20/2026 5:30pm|1.0000");
  EXPECT_EQ(Row(*form, 1), "GBP|0.8000|11/20/2026 5:30pm|1.0000");

  const auto again = Open(WatchMode::Currency);
  EXPECT_EQ(Find<PickBox>(*again, "cmbCurrency").currentText(), "Euro (EUR)");
  EXPECT_EQ(Row(*again, 1), "GBP|||");
}

TEST_F(FrmStockTest, WhatIsMissingIsSaidInItsOrder) {
  const auto stocks = Open(WatchMode::Stocks);
  Find<QComboBox>(*stocks, "cmbDataSource").setCurrentIndex(-1);
  Expect("Stock Warning", "Please enter a stock symbol");
  Click(*stocks, "cmdNew");
  Expect("Data Source Required", "Please select a Data Source");
  Click(*stocks, "cmdDowload");
  EXPECT_EQ(FocusOf(*stocks), "cmbDataSource");
  Choose(*stocks, "Yahoo Stock");
  Expect("Stock Warning", "Please select both Currency In, and Add a Stock to lookup");
  Click(*stocks, "cmdDowload");
  EXPECT_EQ(FocusOf(*stocks), "cmbCurrency");
  Type(*stocks, "cmbCurrency", "USD");
  Expect("Stock Warning", "Please select both Currency In, and Add a Stock to lookup");
  Click(*stocks, "cmdDowload");
  Type(*stocks, "txtSymbol", "ACME");
  Click(*stocks, "cmdNew");
  Type(*stocks, "txtSymbol", "acme");
  Expect("Duplicate Entry", "Duplicate value entered");
  Click(*stocks, "cmdNew");
  EXPECT_EQ(Find<QLineEdit>(*stocks, "txtSymbol").text(), "acme") << "to be mended";
  Tick(*stocks, 0, false);
  EXPECT_FALSE(Find<QPushButton>(*stocks, "cmdDelete").isEnabled());
  Expect("Download Warning", "No items selected to download");
  Click(*stocks, "cmdDowload");
  Tick(*stocks, 0, true);
  Expect("Download Warning", "Could not connect to website");
  Click(*stocks, "cmdDowload");

  const auto rates = Open(WatchMode::Currency);
  Expect("Stock Warning", "Please select a currency");
  Click(*rates, "cmdNew");
  Expect("Currency Warning", "Please select both Currency In, and Add a Currency to lookup");
  Click(*rates, "cmdDowload");
}

TEST_F(FrmStockTest, TickedEntriesAreDeletedAndNumbersNotUsedAgain) {
  WatchList list(Services().registry, WatchMode::Stocks);
  for (const char* symbol : {"A", "B", "C"}) list.Add(symbol);
  Services().registry.Write(Hive::CurrentUser, kStocksKey, "Items", "another setting");
  const auto form = Open(WatchMode::Stocks);
  Tick(*form, 2, false);
  Machine().prompts.ExpectAsk("Delete Items?", "Do you want to delete all selected items?", false);
  Click(*form, "cmdDelete");
  EXPECT_EQ(list.Entries().size(), 3U);
  Machine().prompts.ExpectAsk("Delete Items?", "Do you want to delete all selected items?", true);
  Click(*form, "cmdDelete");
  ASSERT_EQ(list.Entries().size(), 1U);
  EXPECT_EQ(Row(*form, 0), "C|||");
  Type(*form, "txtSymbol", "D");
  Click(*form, "cmdNew");
  EXPECT_EQ(Kept(kStocksKey, "Item4"), "D");
}

TEST_F(FrmStockTest, TheSourcesPageOpensInTheBrowser) {
  const auto form = Open(WatchMode::Stocks);
  Choose(*form, "Yahoo Stock");
  Click(*form, "cmdLookup");
  EXPECT_EQ(Machine().opener.Opened(),
            std::vector<std::string>{"https://finance.yahoo.com/lookup"});
  Choose(*form, "Manual Update");
  Expect("Lookup Warning", "This Data Source has no page to look symbols up");
  Click(*form, "cmdLookup");
}

}  // namespace
}  // namespace corvanta
