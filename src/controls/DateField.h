#pragma once

#include "platform/Date.h"

#include <QLineEdit>

#include <optional>

namespace corvanta::inline platform {
class Clock;
class Locale;
}  // namespace corvanta::inline platform

namespace corvanta::inline controls {

class CalendarPopup;

// A field for a day, in the locale's short form. Keys move it: + - and the arrows by a day, [ ] and
// the arrows with Ctrl by a week, Page Up and Page Down by a month; T is today; F4 opens a
// calendar. A day can be typed as well: whole, as a day of the month that is shown ("20"), or as
// day and month of this year ("11/3"). What is no day stays in the field, coloured once it was
// left.
class DateField : public QLineEdit {
  Q_OBJECT

 public:
  // Locale and clock must outlive the field, which shows today.
  DateField(const Locale& locale, const Clock& clock, QWidget* parent);

  void SetDay(Date day);
  // The day that is typed; the last one while the text is none.
  [[nodiscard]] Date Day() const;
  // Whether the text is a day.
  [[nodiscard]] bool IsDay() const { return Typed().has_value(); }

 Q_SIGNALS:
  void DayChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] std::optional<Date> Typed() const;
  // Of a text that is a day with its year.
  [[nodiscard]] std::optional<Date> TypedInFull() const;
  // Of a text that leaves out the year, or all but the day.
  [[nodiscard]] std::optional<Date> TypedInPart() const;
  // Shows the day that was typed, or the last one again.
  void Settle();
  // Colours a text that is no day.
  void ShowWhetherDay();
  void Move(Date to);
  // Whether the key moves the day.
  bool MoveBy(const QKeyEvent& event);
  void OpenCalendar();

  const Locale& locale_;
  const Clock& clock_;
  CalendarPopup* calendar_;
  Date day_;
};

}  // namespace corvanta::inline controls
