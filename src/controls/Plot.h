#pragma once

#include <QtCharts/QChartView>

#include <vector>

class QAbstractAxis;
class QCategoryAxis;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline controls {

enum class PlotKind {
  Line,
  Ups,   // marks, of what was bought
  Downs  // marks, of what was sold
};

// One line of a chart, or one kind of marks in it, by its name in the legend.
struct PlotSeries {
  QString name;
  PlotKind kind = PlotKind::Line;
  QList<QPointF> points = {};  // from left to right; a day stands as its serial number
};

// What is counted from left to right.
enum class PlotAcross { Number, Day };

// A chart of a few lines over one axis, with the numbers and days of the locale. Lines are told
// apart by their strokes and marks by their shapes as well as by colour, and all of them follow the
// palette from light to dark.
class Plot : public QChartView {
  Q_OBJECT

 public:
  // The locale outlives the chart.
  Plot(const Locale& locale, QWidget* parent);

  // Shows these in the place of what was shown; those without points are left out. `fromZero` has
  // the upward axis begin, or end, with 0.
  void Show(const std::vector<PlotSeries>& all, PlotAcross across, bool fromZero);
  // Shows nothing.
  void Clear() { Show({}, PlotAcross::Number, false); }
  [[nodiscard]] bool IsEmpty() const { return chart()->series().isEmpty(); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Add(const PlotSeries& series);
  void SetAxes(const QRectF& range, PlotAcross across, bool fromZero);
  [[nodiscard]] QCategoryAxis* AxisOf(double from, double to, bool isDay, int steps) const;
  void Colour();

  const Locale& locale_;
  std::vector<PlotKind> kinds_;
};

}  // namespace corvanta::inline controls
