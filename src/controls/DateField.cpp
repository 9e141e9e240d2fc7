#include "controls/DateField.h"

#include "controls/CalendarPopup.h"
#include "controls/QtText.h"
#include "controls/SvgIcon.h"
#include "platform/Clock.h"
#include "platform/Locale.h"

#include <QAction>
#include <QKeyEvent>

namespace corvanta {
namespace {

// A typing error, not a day of somebody's books.
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 9999;

bool IsInRange(Date day) {
  return day.Year() >= kFirstYear && day.Year() <= kLastYear;
}

}  // namespace

DateField::DateField(const Locale& locale, const Clock& clock, QWidget* parent)
    : QLineEdit(parent), locale_(locale), clock_(clock), calendar_(new CalendarPopup(this)) {
  const QString keys =
      tr("+ and − move by a day, [ and ] by a week, Page Up and Page Down by a month; "
         "T is today, F4 opens a calendar");
  setToolTip(keys);
  setAccessibleDescription(keys);
  QAction* open = addAction(SvgIcon(QStringLiteral("calendar")), TrailingPosition);
  open->setToolTip(tr("Open the calendar"));
  connect(open, &QAction::triggered, this, &DateField::OpenCalendar);
  connect(calendar_, &CalendarPopup::DayTaken, this, [this](QDate day) {
    Move(FromQt(day));
    setFocus(Qt::PopupFocusReason);
  });
  SetDay(clock.Today());
}

void DateField::SetDay(Date day) {
  const bool isOther = day != day_;
  day_ = day;
  setText(ToQt(locale_.FormatShortDate(day)));
  setCursorPosition(0);
  if (isOther) Q_EMIT DayChanged();
}

std::optional<Date> DateField::Typed() const {
  if (text() == ToQt(locale_.FormatShortDate(day_))) return day_;
  const auto day = locale_.ParseDate(FromQt(text()));
  return day && IsInRange(*day) ? day : std::nullopt;
}

Date DateField::Day() const {
  return Typed().value_or(day_);
}

bool DateField::Settle() {
  const auto typed = Typed();
  SetDay(typed.value_or(day_));
  return typed.has_value();
}

void DateField::Move(Date to) {
  if (IsInRange(to)) SetDay(to);
  selectAll();
}

bool DateField::MoveBy(const QKeyEvent& event) {
  const bool isWeek = (event.modifiers() & Qt::ControlModifier) != 0;
  const QString typed = event.text();
  const Date day = Day();
  if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down) {
    const int days = isWeek ? 7 : 1;
    Move(day.AddDays(event.key() == Qt::Key_Up ? days : -days));
  } else if (event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown) {
    Move(day.AddMonths(event.key() == Qt::Key_PageUp ? 1 : -1));
  } else if (typed == QStringLiteral("+")) {
    Move(day.AddDays(1));
  } else if (typed == QStringLiteral("-") && Typed()) {
    // Within a day that is not typed to its end it stands between its numbers, as T in a month.
    Move(day.AddDays(-1));
  } else if (typed == QStringLiteral("]") || typed == QStringLiteral("[")) {
    Move(day.AddDays(typed == QStringLiteral("]") ? 7 : -7));
  } else if (typed.compare(QStringLiteral("t"), Qt::CaseInsensitive) == 0 &&
             (Typed() || text().isEmpty())) {
    Move(clock_.Today());
  } else {
    return false;
  }
  return true;
}

void DateField::keyPressEvent(QKeyEvent* event) {
  const bool isAlt = (event->modifiers() & Qt::AltModifier) != 0;
  if (event->key() == Qt::Key_F4 || (isAlt && event->key() == Qt::Key_Down)) return OpenCalendar();
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Whoever presses Enter behind a day that is none sees what became of it before it is saved.
  if (isEnter && !Settle()) return selectAll();
  if (!isAlt && MoveBy(*event)) return;
  QLineEdit::keyPressEvent(event);
}

void DateField::focusOutEvent(QFocusEvent* event) {
  const bool isPopup = event->reason() == Qt::PopupFocusReason;
  if (!isPopup && (IsDay() || text().trimmed().isEmpty())) Settle();
  QLineEdit::focusOutEvent(event);
}

void DateField::OpenCalendar() {
  Settle();
  calendar_->Open(*this, ToQt(day_), ToQt(clock_.Today()));
}

}  // namespace corvanta
