#include "reports/chart/ChartData.h"
#include "reports/chart/ChartFigure.h"
#include "reports/chart/ReportRows.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

// What the figures of a point come to is what the chart says of it.
void ExpectFigures(const ReportTable& report) {
  const ChartData chart = BuildChart(report);
  ASSERT_FALSE(chart.IsEmpty());
  for (std::size_t series = 0; series < chart.series.size(); ++series) {
    for (std::size_t category = 0; category < chart.categories.size(); ++category) {
      const auto& point = chart.series[series].points[category];
      const auto figure = FigureAt(chart, series, category);
      ASSERT_EQ(figure.has_value(), point.has_value());
      if (!figure) continue;
      const auto column = report.Column(figure->header);
      ASSERT_TRUE(column) << figure->header;
      double sum = 0;
      for (const std::size_t row : figure->rows) sum += report.rows[row].cells[*column].Double();
      EXPECT_NEAR(sum, point->figure, 0.001) << figure->name;
    }
  }
}

TEST(ChartFigureTest, APointStandsForTheFiguresThatItShows) {
  ExpectFigures(PayeeReport(3));
  ExpectFigures(PayeeReport(30));
  ExpectFigures(CashFlowReport());
}

TEST(ChartFigureTest, WhatIsGatheredIsOfAllItsRows) {
  const ChartData chart = BuildChart(PayeeReport(14));
  const auto others = FigureAt(chart, 0, chart.categories.size() - 1);
  ASSERT_TRUE(others);
  EXPECT_EQ(others->name, "Others (3)");
  EXPECT_EQ(others->rows.size(), 3U);
  EXPECT_FALSE(FigureAt(chart, 0, chart.categories.size()));
  EXPECT_FALSE(FigureAt(chart, 9, 0));
}

}  // namespace
}  // namespace corvanta
