#include "controls/DateField.h"

#include "controls/CalendarPopup.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "controls/TypedKey.h"
#include "platform/Clock.h"
#include "platform/Locale.h"

#include <QAction>
#include <QKeyEvent>
#include <QRegularExpression>

namespace corvanta::inline controls {
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
  // While it is being typed, a day is not yet wrong.
  connect(this, &QLineEdit::textChanged, this, [this] { setPalette({}); });
  SetDay(clock.Today());
}

void DateField::SetDay(Date day) {
  const bool isOther = day != day_;
  day_ = day;
  setText(ToQt(locale_.FormatShortDate(day)));
  setCursorPosition(0);
  if (isOther) Q_EMIT DayChanged();
}

std::optional<Date> DateField::TypedInFull() const {
  if (text() == ToQt(locale_.FormatShortDate(day_))) return day_;
  const auto day = locale_.ParseDate(FromQt(text()));
  return day && IsInRange(*day) ? day : std::nullopt;
}

std::optional<Date> DateField::TypedInPart() const {
  static const QRegularExpression kForm(
      QStringLiteral(R"(^\s*([0-9]{1,2})(?:\s*[/.\-\s]\s*([0-9]{1,2}))?\s*[/.\-]?\s*$)"));
  const QRegularExpressionMatch match = kForm.match(text());
  if (!match.hasMatch()) return std::nullopt;
  const int first = match.captured(1).toInt();
  const int second = match.captured(2).toInt();
  if (match.captured(2).isEmpty()) return Date::FromYmd(day_.Year(), day_.Month(), first);
  const bool isDayFirst = locale_.ShortDateOrder() == DateOrder::DayMonthYear;
  return Date::FromYmd(clock_.Today().Year(), isDayFirst ? second : first,
                       isDayFirst ? first : second);
}

std::optional<Date> DateField::Typed() const {
  const auto day = TypedInFull();
  return day ? day : TypedInPart();
}

Date DateField::Day() const {
  return Typed().value_or(day_);
}

void DateField::Settle() {
  SetDay(Day());
}

void DateField::ShowWhetherDay() {
  if (IsDay()) return;
  QPalette wrong;
  wrong.setColor(QPalette::Text, MoneyOutColour(palette()));
  setPalette(wrong);
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
  } else if (typed == QStringLiteral("-") && TypedInFull()) {
    // Within a day that is not typed to its end it stands between its numbers, as T in a month.
    Move(day.AddDays(-1));
  } else if (typed == QStringLiteral("]") || typed == QStringLiteral("[")) {
    Move(day.AddDays(typed == QStringLiteral("]") ? 7 : -7));
  } else if (typed.compare(QStringLiteral("t"), Qt::CaseInsensitive) == 0 &&
             (TypedInFull() || text().isEmpty())) {
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
  if (isEnter && text().trimmed().isEmpty()) {
    // Whoever presses Enter in an empty field sees what became of it before it is saved.
    Settle();
    return selectAll();
  }
  if (isEnter && IsDay()) Settle();
  if (isEnter) ShowWhetherDay();
  if (IsCommandLetter(*event)) return event->ignore();
  if (!isAlt && MoveBy(*event)) return;
  QLineEdit::keyPressEvent(event);
}

void DateField::focusOutEvent(QFocusEvent* event) {
  const bool isPopup = event->reason() == Qt::PopupFocusReason;
  if (!isPopup && (IsDay() || text().trimmed().isEmpty())) Settle();
  if (!isPopup) ShowWhetherDay();
  QLineEdit::focusOutEvent(event);
}

void DateField::OpenCalendar() {
  Settle();
  calendar_->Open(*this, ToQt(day_), ToQt(clock_.Today()));
}

}  // namespace corvanta::inline controls
