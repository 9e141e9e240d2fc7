#include "platform/Files.h"
#include "reports/chart/QtChartPlot.h"
#include "reports/chart/ReportRows.h"
#include "reports/chart/ucChartLegend.h"
#include "reports/chart/ucChartView.h"
#include "reports/chart/ucReportChart.h"
#include "support/TestPlatform.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCharts/QHorizontalBarSeries>
#include <QtCharts/QXYSeries>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

class FrmReportChartTest : public testing::Test {
 protected:
  void Show(const ReportTable& report) {
    page_.Show(report);
    page_.resize(800, 500);
    page_.show();
    page_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page_));
    chart_->setFocus(Qt::TabFocusReason);
  }
  void Press(Qt::Key key) { QTest::keyClick(chart_, key); }
  std::vector<std::size_t> Chosen() {
    std::vector<std::size_t> rows;
    for (const auto& signal : chosen_) rows.push_back(signal.front().value<std::size_t>());
    chosen_.clear();
    return rows;
  }

  TestPlatform machine_;
  ucReportChart page_{machine_.Get(), nullptr};
  ucChartView* chart_ = page_.findChild<ucChartView*>("chartReport");
  QSignalSpy chosen_{&page_, &ucReportChart::RowChosen};
};

TEST_F(FrmReportChartTest, KeysGoFromPointToPointAndToTheRow) {
  Show(PayeeReport(14));
  EXPECT_EQ(chart_->CurrentText(), "Payee 14, Expense: -14.00 EUR");
  Press(Qt::Key_Return);
  EXPECT_EQ(Chosen(), std::vector<std::size_t>{13});
  Press(Qt::Key_Down);
  EXPECT_EQ(chart_->CurrentText(), "Payee 13, Expense: -13.00 EUR");
  EXPECT_EQ(chart_->accessibleDescription(), chart_->CurrentText()) << "it is read out";
  Press(Qt::Key_End);
  EXPECT_EQ(chart_->CurrentText(), "Others (3), Expense: -6.00 EUR");
  Press(Qt::Key_Return);
  EXPECT_TRUE(Chosen().empty()) << "several rows are none to go to";
  Press(Qt::Key_Home);
  Press(Qt::Key_Up);
  EXPECT_EQ(chart_->CurrentText(), "Payee 14, Expense: -14.00 EUR");

  Show(CashFlowReport());
  Press(Qt::Key_Right);
  EXPECT_EQ(chart_->CurrentText(), "2026-10, Income: 100.00 EUR") << "the first key begins anew";
  Press(Qt::Key_Right);
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(chart_->CurrentText(), "2026-11, Total: 150.00 EUR");
  Press(Qt::Key_Space);
  EXPECT_EQ(Chosen(), std::vector<std::size_t>{1});
}

TEST_F(FrmReportChartTest, AClickOnABarLeadsToItsRow) {
  Show(PayeeReport(3));
  const auto* bars = qobject_cast<QAbstractBarSeries*>(chart_->chart()->series().constFirst());
  ASSERT_NE(bars, nullptr);
  // The largest lies at the top, which the library counts last.
  const QPointF bar =
      chart_->chart()->mapToPosition({1.5, 2}, chart_->chart()->series().constFirst());
  QTest::mouseClick(chart_->viewport(), Qt::LeftButton, {}, bar.toPoint());
  EXPECT_EQ(Chosen(), std::vector<std::size_t>{2});
}

TEST_F(FrmReportChartTest, ALineWithAGapMarksNoOtherPoint) {
  QChart chart;
  QtChartPlot plot(machine_.locale, chart);
  ChartData data;
  data.kind = ChartKind::Lines;
  data.categories = {"A", "B", "C"};
  data.series.emplace_back();
  data.series.front().points = {ChartPoint{1, 1, {}}, std::nullopt, ChartPoint{3, 3, {}}};
  plot.Show(data, {600, 400});
  const auto* line = qobject_cast<QXYSeries*>(chart.series().constFirst());
  ASSERT_NE(line, nullptr);
  plot.Mark({0, 2}, true);
  EXPECT_EQ(line->selectedPoints(), QList<int>{1});
  plot.Mark({0, 1}, true);
  EXPECT_TRUE(line->selectedPoints().isEmpty());
}

TEST_F(FrmReportChartTest, EachCurrencyHasItsChart) {
  Show(PayeeReport(3));
  auto* currency = page_.findChild<QComboBox*>("cmbChartCurrency");
  EXPECT_TRUE(currency->isVisible());
  currency->setCurrentText("USD");
  EXPECT_EQ(page_.Shown().categories, std::vector<std::string>{"Landlord"});
  page_.Show(PayeeReport(5));
  EXPECT_EQ(page_.Shown().currency, "USD") << "it stays";
  page_.Show(CashFlowReport());
  EXPECT_EQ(page_.Shown().currency, "EUR");
  EXPECT_FALSE(currency->isVisible());
  page_.Show(PayeeReport(3));
  EXPECT_EQ(page_.Shown().currency, "USD") << "it comes back";
}

TEST_F(FrmReportChartTest, ThePersonsOwnCurrencyComesFirst) {
  ReportTable report = PayeeReport(3);
  const std::string own = machine_.Get().locale.CurrencyCode();
  ASSERT_NE(report.rows.front().currency, own);
  report.rows.at(report.rows.size() - 2).currency = own;
  page_.Show(CashFlowReport());
  page_.Show(report);
  EXPECT_EQ(page_.Shown().currency, own);
}

TEST_F(FrmReportChartTest, NothingIsDrawnOfNothing) {
  Show(CashFlowReport());
  EXPECT_TRUE(chart_->isVisible());
  page_.Clear();
  EXPECT_FALSE(chart_->isVisible());
  EXPECT_FALSE(page_.findChild<QPushButton*>("cmdSaveChart")->isEnabled());
  Press(Qt::Key_Right);
  EXPECT_TRUE(page_.Shown().IsEmpty());
}

TEST_F(FrmReportChartTest, ItIsSavedAndPrintedAsItIsShown) {
  Show(CashFlowReport());
  const std::string path = machine_.folder.Path("flow.png");
  machine_.prompts.ExpectSaveFile("Save Chart", path);
  QTest::mouseClick(page_.findChild<QPushButton*>("cmdSaveChart"), Qt::LeftButton);
  EXPECT_TRUE(ReadFile(path).starts_with("\x89PNG"));
  machine_.prompts.ExpectSaveFile("Save Chart", machine_.folder.Path("no/such/flow.png"));
  machine_.prompts.ExpectTell("Corvanta Personal Finance", "*");
  QTest::mouseClick(page_.findChild<QPushButton*>("cmdSaveChart"), Qt::LeftButton);
  EXPECT_EQ(page_.Printed().title, "Monthly Cash Flow");
}

TEST_F(FrmReportChartTest, ColoursFollowThePalette) {
  Show(CashFlowReport());
  const QImage light = chart_->grab().toImage();
  QPalette dark;
  for (const auto role : {QPalette::Window, QPalette::Base})
    dark.setColor(role, QColor(30, 30, 34));
  for (const auto role : {QPalette::WindowText, QPalette::Text}) dark.setColor(role, Qt::white);
  page_.setPalette(dark);
  const QImage other = chart_->grab().toImage();
  EXPECT_EQ(other.pixelColor(2, 2), QColor(30, 30, 34));
  EXPECT_NE(light.pixelColor(2, 2), other.pixelColor(2, 2));
}

TEST_F(FrmReportChartTest, TheLegendNamesAllInAsManyRowsAsTheyNeed) {
  Show(PayeeReport(3));
  auto* legend = page_.findChild<ucChartLegend*>("pnlLegend");
  ASSERT_NE(legend, nullptr);
  EXPECT_EQ(legend->Names(), QStringList{"Expense (EUR)"});
  Show(CashFlowReport());
  EXPECT_EQ(legend->Names(), (QStringList{"EUR:", "Income", "Expense", "Total"}));
  const int one = legend->heightForWidth(2000);
  EXPECT_GT(legend->heightForWidth(160), one) << "no name is cut where there is another row";
  EXPECT_GE(legend->height(), legend->heightForWidth(legend->width()));
}

TEST_F(FrmReportChartTest, ALowChartHasFewerBarsAndANameForEach) {
  Show(PayeeReport(20));
  ASSERT_EQ(page_.Shown().categories.size(), 12U);
  Press(Qt::Key_Down);
  const QString chosen = chart_->CurrentText();
  page_.resize(800, 240);
  QCoreApplication::processEvents();
  const std::vector<std::string>& few = page_.Shown().categories;
  ASSERT_LT(few.size(), 12U);
  EXPECT_EQ(few.front(), "Payee 20");
  EXPECT_TRUE(few.back().starts_with("Others (")) << few.back();
  EXPECT_EQ(chart_->CurrentText(), chosen) << "it is drawn still";
  EXPECT_EQ(chart_->accessibleDescription(), chosen);
  EXPECT_GT(chart_->chart()->plotArea().height() / static_cast<double>(few.size()),
            chart_->fontMetrics().height() - 4);
  page_.resize(800, 500);
  QCoreApplication::processEvents();
  EXPECT_EQ(page_.Shown().categories.size(), 12U) << "as soon as there is room";
  const auto resizedTo = [this](int height) {
    page_.resize(800, height);
    QCoreApplication::processEvents();
    return chart_->CurrentText();
  };
  Press(Qt::Key_End);
  const QString others = chart_->CurrentText();
  ASSERT_TRUE(others.startsWith("Others (9)")) << others.toStdString();
  const QString more = resizedTo(240);
  EXPECT_TRUE(more.startsWith("Others (")) << more.toStdString();
  EXPECT_NE(more, others);
  EXPECT_EQ(resizedTo(500), others);
  Press(Qt::Key_Up);
  EXPECT_EQ(chart_->CurrentText(), "Payee 10, Expense: -10.00 EUR");
  EXPECT_EQ(resizedTo(240), more) << "it is among them";
  EXPECT_EQ(resizedTo(500), "Payee 10, Expense: -10.00 EUR") << "and alone again";
}

TEST_F(FrmReportChartTest, ALargeChartHasLargerLetters) {
  Show(CashFlowReport());
  const auto letters = [this] {
    return chart_->chart()->axes(Qt::Vertical).constFirst()->labelsFont().pointSizeF();
  };
  const auto* legend = page_.findChild<ucChartLegend*>("pnlLegend");
  const double small = letters();
  page_.resize(2400, 1300);
  QCoreApplication::processEvents();
  EXPECT_GT(letters(), small);
  EXPECT_DOUBLE_EQ(legend->font().pointSizeF(), letters());
  page_.resize(800, 500);
  QCoreApplication::processEvents();
  EXPECT_DOUBLE_EQ(letters(), small);
}

TEST_F(FrmReportChartTest, OneBarAloneIsNoWall) {
  Show(PayeeReport(1));
  const auto* bars = qobject_cast<QAbstractBarSeries*>(chart_->chart()->series().constFirst());
  ASSERT_NE(bars, nullptr);
  EXPECT_LT(bars->barWidth() * chart_->chart()->plotArea().height(), 80);
  const double last = chart_->chart()->plotArea().right();
  EXPECT_LT(last + 20, chart_->width()) << "the last number has room for its half";
}

}  // namespace
}  // namespace corvanta
