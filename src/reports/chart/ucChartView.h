#pragma once

#include "reports/chart/ChartData.h"
#include "reports/chart/QtChartPlot.h"

#include <QtCharts/QChartView>

#include <optional>

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
  [[nodiscard]] const ChartData& Data() const { return plot_.Data(); }
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
  void Colour();
  void Hover(const ChartPlace& place, bool isOver);
  void Activate(const ChartPlace& place);
  void GoTo(const ChartPlace& place);
  void Step(int categories, int series);
  void MarkCurrent(bool isMarked);
  void ShowCurrentTip();

  const Locale& locale_;
  QtChartPlot plot_;
  std::optional<ChartPlace> current_;
};

}  // namespace corvanta::inline reports
