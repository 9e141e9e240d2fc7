#pragma once

#include "reports/chart/ChartData.h"

#include <QObject>

#include <cstddef>
#include <vector>

class QAbstractBarSeries;
class QBarSet;
class QCategoryAxis;
class QChart;
class QPalette;
class QPointF;
class QSize;
class QXYSeries;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

// A point of a chart by its numbers in ChartData.
struct ChartPlace {
  std::size_t series = 0;
  std::size_t category = 0;
};

// How the line of a series is drawn, so that it is told apart without colour.
[[nodiscard]] Qt::PenStyle StrokeOf(std::size_t series);

// The step of the type scale for the texts of a chart that has so much room, in pixels: on a large
// one small letters would be lost.
[[nodiscard]] int ChartTextStep(const QSize& room);

// A report's chart as the library draws it: bars, lines and axes, where on it each point stands,
// and which point the mouse is over. It knows nothing of keys and rows.
class QtChartPlot : public QObject {
  Q_OBJECT

 public:
  // Both outlive it.
  QtChartPlot(const Locale& locale, QChart& chart);

  // Takes the place of what was drawn; `room` in pixels is what the chart has.
  void Show(ChartData chartData, const QSize& room);
  [[nodiscard]] const ChartData& Data() const { return data_; }
  // Whether the categories stand one below the other.
  [[nodiscard]] bool LiesAcross() const { return data_.kind == ChartKind::Bars; }
  // As many labels of categories as have room without running into each other, and bars that are
  // no thicker than bars are.
  void Fit(const QSize& room);
  void Colour(const QPalette& colours);
  // Shows a point as the chosen one, or no longer.
  void Mark(const ChartPlace& place, bool isMarked);
  // Where a point stands in the chart, in its coordinates.
  [[nodiscard]] QPointF PositionOf(const ChartPlace& place) const;

 Q_SIGNALS:
  void Hovered(const ChartPlace& place, bool isOver);
  void Clicked(const ChartPlace& place);

 private:
  // What of the library shows a series: one of the two.
  struct Shown {
    QBarSet* bars = nullptr;
    QXYSeries* line = nullptr;
  };

  // Bars from left to right are counted from below.
  [[nodiscard]] int IndexOf(std::size_t category) const;
  [[nodiscard]] std::size_t CategoryOf(int index) const;
  [[nodiscard]] double AlongAxis(std::size_t category) const;
  // The one of the line that lies nearest to the point.
  [[nodiscard]] ChartPlace NearestOf(std::size_t series, const QPointF& point) const;
  void Clear();
  void AddBars();
  void AddBarSet(std::size_t series);
  void AddLines();
  void AddLine(std::size_t series);
  void AddAxes();
  // Every how many categories a label has room; 1 for each of them.
  [[nodiscard]] std::size_t LabelStep(int width) const;
  void LabelCategories(int width);
  void LabelDays(int width);
  [[nodiscard]] int WidestCategory() const;
  void FitBars(const QSize& room);
  void FitMargins();
  void ColourSeries(const QPalette& colours);

  const Locale& locale_;
  QChart& chart_;
  ChartData data_;
  std::vector<Shown> shown_;
  int textStep_ = -1;
  QAbstractBarSeries* bars_ = nullptr;
  QCategoryAxis* categories_ = nullptr;
  QCategoryAxis* values_ = nullptr;
};

}  // namespace corvanta::inline reports
