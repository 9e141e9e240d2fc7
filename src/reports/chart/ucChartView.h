#pragma once

#include "reports/chart/ChartData.h"

#include <QtCharts/QChartView>

#include <optional>
#include <vector>

class QAbstractBarSeries;
class QBarSet;
class QCategoryAxis;
class QXYSeries;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

// The chart of a report on the screen. Each point says its figure under the mouse and to the arrow
// keys; a click on it, and Enter, lead to its row. Colours follow the palette from light to dark.
class ucChartView : public QChartView {
  Q_OBJECT

 public:
  // The locale outlives it.
  ucChartView(const Locale& locale, QWidget* parent);

  void Show(ChartData chartData);
  [[nodiscard]] const ChartData& Data() const { return data_; }
  // What the keys have gone to: the point in words; empty for none.
  [[nodiscard]] QString CurrentText() const;

 Q_SIGNALS:
  void RowChosen(std::size_t row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Place {
    std::size_t series = 0;
    std::size_t category = 0;
  };
  // What of the library shows a series: one of the two.
  struct Shown {
    QBarSet* bars = nullptr;
    QXYSeries* line = nullptr;
  };

  [[nodiscard]] bool LiesAcross() const { return data_.kind == ChartKind::Bars; }
  // Bars from left to right are counted from below.
  [[nodiscard]] int IndexOf(std::size_t category) const;
  [[nodiscard]] std::size_t CategoryOf(int index) const;
  [[nodiscard]] double PositionOf(std::size_t category) const;
  void AddBars();
  void AddLines();
  void AddLine(std::size_t series);
  void AddAxes();
  void LabelCategories();
  [[nodiscard]] QCategoryAxis* MakeAxis(double low, double high);
  void Colour();

  void Hover(const Place& place, bool isOver);
  // The one of the line that lies nearest to the point.
  [[nodiscard]] Place NearestOf(std::size_t series, const QPointF& point) const;
  void Activate(const Place& place);
  void GoTo(const Place& place);
  void Step(int categories, int series);
  void MarkCurrent(bool isMarked);
  void ShowCurrentTip();

  const Locale& locale_;
  ChartData data_;
  std::vector<Shown> shown_;
  QAbstractBarSeries* bars_ = nullptr;
  QCategoryAxis* categories_ = nullptr;
  QCategoryAxis* values_ = nullptr;
  std::optional<Place> current_;
};

}  // namespace corvanta::inline reports
