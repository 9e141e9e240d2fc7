#include "app/register/TotalsLine.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Balances.h"
#include "reports/print/PrintTable.h"
#include "support/FixedLocale.h"

#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(TotalsLine, TheNumberOfRowsIsNeverCut) {
  const FixedLocale locale;
  TotalsLine line(nullptr);
  PeriodTotals totals;
  totals.paidIn = 2700;
  totals.paidOut = -2585.51;
  totals.thisPeriod = totals.balance = 614.49;
  line.resize(1200, 40);
  line.show();
  const QString text = QStringLiteral("1,234,567 transactions");
  line.Show(text, totals, locale);
  const auto& rows = *line.findChild<QLabel*>("lblRows");
  EXPECT_EQ(rows.text(), text);
  for (const int width : {900, 620, 480, 420, 380}) {
    line.resize(std::max(width, line.minimumSizeHint().width()), 60);
    QCoreApplication::processEvents();
    EXPECT_LE(rows.fontMetrics().horizontalAdvance(rows.text()), rows.width()) << width;
    EXPECT_TRUE(rows.text() == text || rows.text().endsWith(QStringLiteral("…")) ||
                rows.text().isEmpty())
        << qPrintable(rows.text());
  }
  line.resize(1200, 40);
  QCoreApplication::processEvents();
  EXPECT_EQ(rows.text(), text);
}

TEST(TotalsLine, AllOfItIsPrinted) {
  const FixedLocale locale;
  TotalsLine line(nullptr);
  EXPECT_TRUE(line.Printed().empty());
  line.Show(QStringLiteral("3 payees"), {}, false);
  ASSERT_EQ(line.Printed().size(), 1U);
  EXPECT_EQ(line.Printed()[0].left, "3 payees");
  PeriodTotals totals;
  totals.paidIn = 2700;
  totals.paidOut = -2585.51;
  totals.thisPeriod = totals.balance = 614.49;
  line.Show(QStringLiteral("14 transactions"), totals, locale);
  const std::vector<PrintSummary> lines = line.Printed();
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0].left, "14 transactions");
  EXPECT_EQ(lines[3].right, "Balance: 614.49");
}

TEST(TotalsLine, AFigureIsWholeOrLeavesAndTheToolTipHasAll) {
  const FixedLocale locale;
  QWidget window;
  TotalsLine line(&window);
  PeriodTotals totals;
  totals.paidIn = 1234567.89;
  totals.paidOut = -7654321.01;
  totals.thisPeriod = -6419753.12;
  totals.balance = 23456789.01;
  window.resize(1300, 100);
  window.show();
  line.Show(QStringLiteral("14 transactions"), totals, locale);
  const auto& figure = *line.findChild<QLabel*>("lblBalance");
  const QString whole = QStringLiteral("Balance: 23,456,789.01");
  std::size_t before = 4;
  for (int width = 1200; width >= 100; width -= 20) {
    line.resize(width, 60);
    QCoreApplication::processEvents();
    std::size_t shown = 0;
    for (const char* name : {"lblPaidIn", "lblPaidOut", "lblThisPeriod", "lblBalance"}) {
      const auto& label = *line.findChild<QLabel*>(name);
      if (!label.isVisible()) continue;
      ++shown;
      EXPECT_GE(label.width(), label.fontMetrics().horizontalAdvance(label.text())) << width;
      EXPECT_LE(label.geometry().right(), line.width()) << width;
    }
    EXPECT_LE(shown, before) << width;
    before = shown;
    EXPECT_TRUE(figure.text() == whole || (shown == 1 && figure.text().endsWith(u'…')))
        << width << qPrintable(figure.text());
    for (const char* amount : {"1,234,567.89", "-7,654,321.01", "-6,419,753.12", "23,456,789.01"}) {
      EXPECT_TRUE(line.toolTip().contains(QLatin1String(amount))) << amount;
    }
  }
  EXPECT_EQ(before, 1U);
  EXPECT_LE(line.minimumSizeHint().width(), 100) << "it never widens the window";
}

TEST(TotalsLine, OneLongFigureEndsInDots) {
  QWidget window;
  TotalsLine line(&window);
  window.resize(1300, 100);
  window.show();
  const QString figure = QStringLiteral("Total (EUR): 1,234.00    Total (JPY): 9,876,543");
  line.Show(QStringLiteral("2 accounts"), figure.split(QStringLiteral("    ")), false);
  auto& label = *line.findChild<QLabel*>("lblBalance");
  line.resize(900, 40);
  QCoreApplication::processEvents();
  EXPECT_EQ(label.text(), figure);
  line.resize(200, 40);
  QCoreApplication::processEvents();
  EXPECT_TRUE(label.text().endsWith(u'…')) << qPrintable(label.text());
  for (const QString& one : figure.split(QStringLiteral("    "))) {
    EXPECT_TRUE(line.toolTip().split(u'\n').contains(one)) << qPrintable(one);
  }
  EXPECT_EQ(line.Printed().size(), 2U) << "each in a line of its own";
}

TEST(TotalsLine, FiguresOfManyCurrenciesAreWholeInSomeRows) {
  QWidget window;
  TotalsLine line(&window);
  window.resize(1300, 200);
  window.show();
  const QStringList figures = {"Total (EUR): -110,960.00", "Total (USD): 21,590.35",
                               "Total (JPY): 446,804.00", "Total (GBP): 17,503.50"};
  line.Show(QStringLiteral("10 accounts"), figures, false);
  auto& label = *line.findChild<QLabel*>("lblBalance");
  line.resize(460, 100);
  QCoreApplication::processEvents();
  for (const QString& figure : figures) EXPECT_TRUE(label.text().contains(figure));
  EXPECT_GT(label.text().count(u'\n'), 0);
  EXPECT_GE(label.width(), label.sizeHint().width());
  EXPECT_EQ(line.findChild<QLabel*>("lblRows")->text(), "10 accounts");
}

}  // namespace
}  // namespace corvanta
