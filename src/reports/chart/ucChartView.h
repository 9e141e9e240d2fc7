#pragma once

#include "reports/chart/ChartData.h"
#include "reports/chart/ChartFigure.h"
#include "reports/chart/QtChartPlot.h"

#include <QtCharts/QChartView>

#include <optional>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

// The chart of a report on the screen. Each point says its figure under the mouse and to the arrow
// keys; a click on it, and Enter, lead to its row, a click with Ctrl asks what it is made of.
// Colours follow the palette from light to dark.
class ucChartView : public QChartView {
  Q_OBJECT

 public:
  // The locale outlives it.
  ucChartView(const Locale& locale, QWidget* parent);

  void Show(ChartData chartData);
  // The same figures with more or fewer of them gathered: the keys stay at the point that they have
  // gone to, or at the one that it is gathered in until it stands alone again.
  void ShowAgain(ChartData chartData);
  [[nodiscard]] const ChartData& Data() const { return plot_.Data(); }
  // What the keys have gone to: the point in words; empty for none.
  [[nodiscard]] QString CurrentText() const;
  // The point under the mouse or, where there is none or the keys were used since, the one that
  // the keys have gone to.
  [[nodiscard]] std::optional<ChartPlace> Chosen() const { return pointed_ ? pointed_ : current_; }

 Q_SIGNALS:
  void RowChosen(std::size_t row);
  void FigureAsked();  // of the point that is chosen

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Colour();
  void Hover(const ChartPlace& place, bool isOver);
  void Activate(const ChartPlace& place);
  void Click(const ChartPlace& place);
  void GoTo(const ChartPlace& place);
  void Step(int categories, int series);
  void MarkCurrent(bool isMarked);
  void ShowCurrentTip();

  const Locale& locale_;
  QtChartPlot plot_;
  std::optional<ChartPlace> current_;
  std::optional<ChartFigure> wanted_;  // what the keys were sent to
  std::optional<ChartPlace> pointed_;  // under the mouse
};

}  // namespace corvanta::inline reports
