#pragma once

#include "reports/chart/ChartData.h"
#include "reports/chart/ChartFigure.h"
#include "reports/print/PrintTable.h"
#include "reports/query/ReportTable.h"

#include <QWidget>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

class ucChartLegend;
class ucChartView;

// The page "Charts" of a report: its chart, of one currency at a time where it has several, which
// can be saved and printed. It is a part of the window and asks nothing of the data file.
class ucReportChart : public QWidget {
  Q_OBJECT

 public:
  // The platform outlives it.
  ucReportChart(Platform& platform, QWidget* parent);

  // Takes the place of what was shown; in the currency that was chosen where the report has it, or
  // else in the person's own.
  void Show(const ReportTable& report);
  // Holds no rows any longer.
  void Clear() { Show({}); }
  [[nodiscard]] const ChartData& Shown() const;
  // The figures behind the point that the mouse or the keys are at; nullopt for none.
  [[nodiscard]] std::optional<ChartFigure> Chosen() const;
  // The commands of the chart's own menu.
  void AddCommands(const QList<QAction*>& commands);
  // For the preview and the printer.
  [[nodiscard]] PrintTable Printed() const;

 Q_SIGNALS:
  // A bar or a point was chosen that stands for that row of the report.
  void RowChosen(std::size_t row);
  // What the point that is chosen is made of is asked for.
  void FigureAsked();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  // As many bars as have room for a name each.
  [[nodiscard]] std::size_t MostBars() const;
  // All of it, whatever has room on the screen.
  [[nodiscard]] ChartData Whole() const;
  void MakeHead();
  void ShowCurrency();
  // What stands beside the chart follows it.
  void ShowBeside();
  void Save();

  Platform& platform_;
  ReportTable report_;
  std::string currency_;  // that is shown
  std::string chosen_;    // by the person; empty for none yet
  QComboBox* cmbChartCurrency_;
  QLabel* lblChartCurrency_;
  QPushButton* cmdSaveChart_;
  QStackedWidget* pages_;
  ucChartView* chart_;
  ucChartLegend* legend_;
  std::size_t bars_ = kMaxBars;
};

}  // namespace corvanta::inline reports
