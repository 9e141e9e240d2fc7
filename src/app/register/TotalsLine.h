#pragma once

#include <QStringList>
#include <QWidget>

#include <array>
#include <vector>

class QGridLayout;
class QLabel;

namespace corvanta::inline controls {
class MoneyLabel;
}

namespace corvanta::inline ledger {
struct PeriodTotals;
}

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {
struct PrintSummary;
}

namespace corvanta::inline app {

// The line under a list: how many rows it has, and what they come to. Where it is too narrow for
// all figures they stand in two rows, or a few, then those leave that matter least: a figure that
// is cut would be another one. The tool tip has all of them.
class TotalsLine : public QWidget {
  Q_OBJECT

 public:
  explicit TotalsLine(QWidget* parent);

  // What the rows come to, such as a figure of each currency. `negative` gives them the colour for
  // what is below zero.
  void Show(const QString& rows, const QStringList& figures, bool negative);
  // The four figures of a register. Where it is filtered, all but the balance are of the rows that
  // the filter has chosen, which the third one says.
  void Show(const QString& rows, const PeriodTotals& totals, const Locale& money,
            bool isFiltered = false);

  // All of it, each figure in a line of its own, as it is printed below the list.
  [[nodiscard]] std::vector<PrintSummary> Printed() const;

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  enum class Form { OneRow, TwoRows, PeriodAndFigure, FigureAlone };
  [[nodiscard]] int WidthOf(Form form) const;
  // The first form that has room.
  [[nodiscard]] Form Fitting() const;
  [[nodiscard]] QString Wrapped(int room) const;
  void ShowTips();
  void Arrange();
  // What does not fit ends in dots: the rows' number, and where nothing else is left the figure.
  void Elide();

  QGridLayout* grid_;
  QLabel* rows_;
  QString rowsText_;
  MoneyLabel* figure_;  // the balance
  QStringList figures_;
  QString figureText_;                 // all of them
  std::array<MoneyLabel*, 3> others_;  // paid in, paid out, this period
  bool hasOthers_ = false;
  Form form_ = Form::OneRow;
};

}  // namespace corvanta::inline app
