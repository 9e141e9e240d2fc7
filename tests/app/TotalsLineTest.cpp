#include "app/TotalsLine.h"
#include "ledger/Balances.h"
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

}  // namespace
}  // namespace corvanta
