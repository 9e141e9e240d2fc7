#pragma once

#include <QDate>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <QWidget>

class QPainter;

namespace corvanta::inline controls {

// The month calendar: one month as a grid of days, drawn by itself. Arrow keys move the chosen day,
// Page Up and Page Down the month, with Ctrl the year, Home goes to today; the single arrows beside
// the title and the mouse wheel turn the month, the double ones the year, and the title is a way to
// today. Its menu has all of them by name. Days beyond the shown month are shown muted. What the
// marks of a day stand for is told by its tool tip, and of the chosen day to assistive tools.
class ucCalendar : public QWidget {
  Q_OBJECT

 public:
  explicit ucCalendar(QWidget* parent = nullptr);

  // The day that is marked as today; the calendar opens on it.
  void SetToday(QDate today);
  // Days with transactions, below which a dot stands.
  void SetMarkedDays(QSet<QDate> days);
  // Days on which something is due, whose corner is marked, with a line for each thing.
  void SetDueDays(QMap<QDate, QStringList> days);
  // Chooses a day and shows its month; sends no signal.
  void SetSelected(QDate day);
  [[nodiscard]] QDate Selected() const { return selected_; }
  [[nodiscard]] QDate ShownMonth() const { return month_; }  // its first day
  [[nodiscard]] QDate LastShownDay() const;
  // The month above the days, in the longest form that fits between the arrows.
  [[nodiscard]] QString Title() const;
  // The day and what its marks stand for.
  [[nodiscard]] QString Describe(QDate day) const;

  // Where the day is drawn, in the widget; empty when it is not on the shown page.
  [[nodiscard]] QRect DayRect(QDate day) const;

  // The arrow that turns to the next month, or to the one before; the one for the year.
  [[nodiscard]] QRect ArrowRect(bool next) const;
  [[nodiscard]] QRect YearRect(bool next) const;
  // Chooses today.
  void GoToToday() { Choose(today_); }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void DateSelected(QDate day);   // a click, or the arrow keys
  void DateActivated(QDate day);  // a double click, or Enter
  void PageTurned();              // other days are shown

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  static constexpr int kWeeks = 6;
  static constexpr int kDays = 7;

  // Turns the page, or goes to today, for a click above the days; false for one among them.
  bool TurnAt(QPoint position);
  void DrawArrows(QPainter& painter) const;
  [[nodiscard]] int HeaderHeight() const;
  [[nodiscard]] int ArrowWidth() const;
  // What a click there, above the days, does.
  [[nodiscard]] QString HeaderTip(QPoint position) const;
  [[nodiscard]] QFont TitleFont() const;
  [[nodiscard]] QRect CellRect(int row, int column) const;
  [[nodiscard]] int CellRoom() const;
  [[nodiscard]] QDate FirstShownDay() const;
  [[nodiscard]] QDate DayAt(QPoint position) const;  // invalid where there is none
  void Choose(QDate day);
  void ShowMonth(QDate month);
  // Tells assistive tools of the chosen day.
  void TellChosen();
  void TurnMonth(int months);
  void DrawHeader(QPainter& painter) const;
  void DrawDay(QPainter& painter, QDate day, const QRect& cell) const;
  void DrawMarks(QPainter& painter, QDate day, const QRectF& pill) const;

  QDate today_;
  QDate month_;
  QDate selected_;
  QSet<QDate> marked_;
  QMap<QDate, QStringList> due_;
};

}  // namespace corvanta::inline controls
