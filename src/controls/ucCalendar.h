#pragma once

#include <QDate>
#include <QSet>
#include <QWidget>

class QPainter;

namespace corvanta {

// The month calendar: one month as a grid of days, drawn by itself. Arrow keys move the chosen day,
// Page Up and Page Down the month, Home goes to today; the arrows beside the title and the mouse
// wheel turn the month. Days beyond the shown month are shown muted.
class ucCalendar : public QWidget {
  Q_OBJECT

 public:
  explicit ucCalendar(QWidget* parent = nullptr);

  // The day that is marked as today; the calendar opens on it.
  void SetToday(QDate today);
  // Days below which a dot stands.
  void SetMarkedDays(QSet<QDate> days);
  // Chooses a day and shows its month; sends no signal.
  void SetSelected(QDate day);
  [[nodiscard]] QDate Selected() const { return selected_; }
  [[nodiscard]] QDate ShownMonth() const { return month_; }  // its first day

  // Where the day is drawn, in the widget; empty when it is not on the shown page.
  [[nodiscard]] QRect DayRect(QDate day) const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void DateSelected(QDate day);   // a click, or the arrow keys
  void DateActivated(QDate day);  // a double click, or Enter

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] int HeaderHeight() const;
  [[nodiscard]] QRect ArrowRect(bool next) const;
  [[nodiscard]] QRect CellRect(int row, int column) const;
  [[nodiscard]] QDate FirstShownDay() const;
  [[nodiscard]] QDate DayAt(QPoint position) const;  // invalid where there is none
  void Choose(QDate day);
  void TurnMonth(int months);
  void DrawHeader(QPainter& painter) const;
  void DrawDay(QPainter& painter, QDate day, const QRect& cell) const;

  QDate today_;
  QDate month_;
  QDate selected_;
  QSet<QDate> marked_;
};

}  // namespace corvanta
