#include "app/reports/FrmExplain.h"
#include "controls/SortedTable.h"
#include "platform/Platform.h"
#include "support/DialogTest.h"
#include "support/TestPlatform.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>

namespace corvanta {
namespace {

// Counts what is written for the eyes.
class CountingLocale : public FixedLocale {
 public:
  [[nodiscard]] std::string FormatNumber(double value, int decimals = -1) const override {
    ++written;
    return FixedLocale::FormatNumber(value, decimals);
  }
  mutable int written = 0;
};

class FrmExplainTest : public DialogTest<testing::Test> {
 protected:
  static std::vector<ExplainedRow> Rows(int count) {
    std::vector<ExplainedRow> rows;
    for (int i = 0; i < count; ++i) {
      ExplainedRow row;
      row.transactionId = i + 1;
      row.date = Date::FromIso("2026-01-01")->AddDays(i % 300);
      row.account = "Bank";
      row.payee = i % 1000 == 7 ? "Baker" : "Boss";
      row.currency = "GBP";
      row.amount = row.contribution = i % 10;
      rows.push_back(row);
    }
    return rows;
  }
  static ReportColumn Total() {
    return {"Total", ReportColumn::Number, ReportColumn::Content::Money};
  }
  static std::string Cell(const SortedTable& list, int row, int column) {
    return list.model()->index(row, column).data().toString().toStdString();
  }

  TestPlatform machine_;
};

TEST_F(FrmExplainTest, OfManyRowsOnlyThoseInSightAreWritten) {
  CountingLocale locale;
  const Platform& own = machine_.Get();
  Platform platform{own.registry, locale,          own.clock,         own.machine,
                    own.files,    own.prompts,     own.progress,      own.download,
                    own.opener,   own.spreadsheet, own.profileFolder, own.dataFolder};
  constexpr int kRows = 100000;
  FrmExplain dialog("Total of all", Rows(kRows), Total(), "GBP", platform, nullptr);
  Show(dialog);
  QApplication::processEvents();
  auto& list = Find<SortedTable>(dialog, "lvExplain");
  ASSERT_EQ(list.model()->rowCount(), kRows);
  EXPECT_EQ(Find<QLabel>(dialog, "lblSum").text(), "100,000 rows make 450,000.00 GBP");
  // A few screens of rows at most, of three figures each.
  const int few = 2000;
  EXPECT_LT(locale.written, few);
  list.ChooseColumn(7);
  list.ChooseColumn(7);
  EXPECT_EQ(Cell(list, 0, 7), "9.00");
  list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
  QApplication::processEvents();
  EXPECT_EQ(Cell(list, kRows - 1, 7), "0.00");
  EXPECT_LT(locale.written, 2 * few) << "sorting writes nothing";
}

TEST_F(FrmExplainTest, ItIsSortedAndSearchedAsEveryList) {
  FrmExplain dialog("Total", Rows(2000), Total(), "GBP", machine_.Get(), nullptr);
  Show(dialog);
  auto& list = Find<SortedTable>(dialog, "lvExplain");
  EXPECT_TRUE(list.isColumnHidden(4)) << "nothing is converted";
  list.ChooseColumn(2);
  EXPECT_EQ(Cell(list, 0, 2), "Baker");
  EXPECT_EQ(dialog.Transaction(), 1) << "the chosen row stays chosen";
  QTest::keyClick(&list, Qt::Key_F, Qt::ControlModifier);
  auto& find = Find<QLineEdit>(dialog, "txtFind");
  ASSERT_TRUE(find.hasFocus());
  QTest::keyClicks(&find, "baker");
  EXPECT_EQ(list.model()->rowCount(), 2);
  EXPECT_EQ(Find<QLabel>(dialog, "lblSum").text(), "2 of 2,000 rows, which make 14.00 GBP");
  EXPECT_EQ(dialog.Transaction(), 8);
  QTest::keyClicks(&find, "x");
  EXPECT_EQ(dialog.Transaction(), 0);
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdAccept").isEnabled());
  QTest::keyClick(&find, Qt::Key_Escape);
  EXPECT_TRUE(dialog.isVisible()) << "Escape leaves the search first";
  EXPECT_EQ(list.model()->rowCount(), 2000);
  QTest::keyClick(&list, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FrmExplainTest, WhatIsConvertedOrTakenOffSaysSo) {
  std::vector<ExplainedRow> rows = Rows(2);
  rows[1].rate = 0.5;
  rows[1].sign = -1;
  rows[1].transactionId = 0;
  FrmExplain dialog("Total", rows, Total(), "GBP", machine_.Get(), nullptr);
  Show(dialog);
  auto& list = Find<SortedTable>(dialog, "lvExplain");
  EXPECT_EQ(Cell(list, 1, 5), "0.5000");
  EXPECT_EQ(Cell(list, 1, 6), "−");
  EXPECT_FALSE(list.isColumnHidden(6));
  list.ChooseRow(1);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible()) << "what is no transaction leads nowhere";
  list.ChooseRow(0);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Transaction(), 1);
}

}  // namespace
}  // namespace corvanta
