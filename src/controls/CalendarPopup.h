#pragma once

#include <QFrame>

namespace corvanta::inline controls {

class ucCalendar;

// The month calendar as a small window over a form. A click or Enter takes the day; Escape, or a
// click beside it, leaves the day as it was.
class CalendarPopup : public QFrame {
  Q_OBJECT

 public:
  explicit CalendarPopup(QWidget* parent);

  // Below the field, or above it where the screen ends.
  void Open(const QWidget& field, QDate day, QDate today);

 Q_SIGNALS:
  void DayTaken(QDate day);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Choose(QDate day);

  ucCalendar* calendar_;
  bool isPressed_ = false;
  bool isChosen_ = false;  // by the button that is pressed
};

}  // namespace corvanta::inline controls
