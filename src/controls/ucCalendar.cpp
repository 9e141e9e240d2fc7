#include "controls/ucCalendar.h"

#include "controls/CalendarRole.h"
#include "controls/Style.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <functional>

namespace corvanta::inline controls {
namespace {
constexpr int kMonths = 12;

// The month with its year, the longest form first.
QStringList TitlesOf(const QLocale& locale, QDate month) {
  const QString year = QString::number(month.year());
  const QString number = QString::number(month.month());
  return {locale.standaloneMonthName(month.month()) + u' ' + year,
          locale.standaloneMonthName(month.month(), QLocale::ShortFormat) + u' ' + year,
          number + u'/' + year, number};
}

QDate FirstOfMonth(QDate day) {
  return {day.year(), day.month(), 1};
}

}  // namespace

ucCalendar::ucCalendar(QWidget* parent) : QWidget(parent) {
  TellCalendarRole();
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setAccessibleName(tr("Calendar"));
  SetToday(QDate(2000, 1, 1));
}

void ucCalendar::SetToday(QDate today) {
  today_ = today;
  SetSelected(today);
}

void ucCalendar::SetMarkedDays(QSet<QDate> days) {
  marked_ = std::move(days);
  TellChosen();
  update();
}

void ucCalendar::SetDueDays(QMap<QDate, QStringList> days) {
  due_ = std::move(days);
  TellChosen();
  update();
}

QString ucCalendar::Describe(QDate day) const {
  QStringList lines{locale().toString(day, QLocale::LongFormat)};
  for (const QString& due : due_.value(day)) lines.append(tr("Due: %1").arg(due));
  if (marked_.contains(day)) lines.append(tr("Has transactions"));
  return lines.join(u'\n');
}

void ucCalendar::TellChosen() {
  const QString description = Describe(selected_);
  if (description == accessibleDescription()) return;
  setAccessibleDescription(description);
  QAccessibleValueChangeEvent told(this, description);
  QAccessible::updateAccessibility(&told);
}

void ucCalendar::SetSelected(QDate day) {
  selected_ = day;
  TellChosen();
  ShowMonth(FirstOfMonth(day));
}

void ucCalendar::ShowMonth(QDate month) {
  const bool isOther = month != month_;
  month_ = month;
  update();
  if (isOther) Q_EMIT PageTurned();
}

void ucCalendar::Choose(QDate day) {
  if (!day.isValid()) return;
  SetSelected(day);
  Q_EMIT DateSelected(day);
}

void ucCalendar::TurnMonth(int months) {
  const QDate month = month_.addMonths(months);
  if (month.isValid()) ShowMonth(month);
}

QSize ucCalendar::minimumSizeHint() const {
  const int cell = fontMetrics().horizontalAdvance(QStringLiteral("00")) + kRhythm;
  const int title = QFontMetrics(TitleFont()).horizontalAdvance(QStringLiteral("00/0000"));
  return {std::max(kDays * cell, 4 * ArrowWidth() + title) + 2 * kRhythm, sizeHint().height()};
}

QSize ucCalendar::sizeHint() const {
  const int cell = fontMetrics().height() + kRhythm + 2;
  return {kDays * (cell + kRhythm) + 2 * kRhythm, HeaderHeight() + (kWeeks + 1) * cell + kRhythm};
}

int ucCalendar::HeaderHeight() const {
  return fontMetrics().height() + 2 * kRhythm;
}

// The outer ones are for the year.
QRect ucCalendar::YearRect(bool next) const {
  const int side = ArrowWidth();
  return {next ? width() - kRhythm / 2 - side : kRhythm / 2, 0, side, HeaderHeight()};
}

QRect ucCalendar::ArrowRect(bool next) const {
  const int side = ArrowWidth();
  return YearRect(next).translated(next ? -side : side, 0);
}

int ucCalendar::ArrowWidth() const {
  return HeaderHeight() * 3 / 4;
}

QFont ucCalendar::TitleFont() const {
  QFont font = this->font();
  font.setWeight(QFont::DemiBold);
  return font;
}

QString ucCalendar::Title() const {
  const int room = width() - 4 * ArrowWidth() - 2 * kRhythm;
  const QFontMetrics metrics(TitleFont());
  QString title;
  for (const QString& form : TitlesOf(locale(), month_)) {
    title = form;
    if (metrics.horizontalAdvance(title) <= room) break;
  }
  return title;
}

// Row 0 holds the names of the week days.
QRect ucCalendar::CellRect(int row, int column) const {
  const int left = kRhythm;
  const int gridWidth = width() - 2 * kRhythm;
  const int top = HeaderHeight();
  const int gridHeight = height() - top - kRhythm;
  const int shown = isRightToLeft() ? kDays - 1 - column : column;
  const QPoint from(left + shown * gridWidth / kDays, top + row * gridHeight / (kWeeks + 1));
  const QPoint to(left + (shown + 1) * gridWidth / kDays - 1,
                  top + (row + 1) * gridHeight / (kWeeks + 1) - 1);
  return {from, to};
}

// What a text may take of a cell.
int ucCalendar::CellRoom() const {
  return (width() - 2 * kRhythm) / kDays - kRhythm / 2;
}

QDate ucCalendar::FirstShownDay() const {
  const int first = static_cast<int>(locale().firstDayOfWeek());
  return month_.addDays(-((month_.dayOfWeek() - first + kDays) % kDays));
}

QDate ucCalendar::LastShownDay() const {
  return FirstShownDay().addDays(kWeeks * kDays - 1);
}

QRect ucCalendar::DayRect(QDate day) const {
  const auto index = static_cast<int>(FirstShownDay().daysTo(day));
  if (index < 0 || index >= kWeeks * kDays) return {};
  return CellRect(1 + index / kDays, index % kDays);
}

QDate ucCalendar::DayAt(QPoint position) const {
  for (int index = 0; index < kWeeks * kDays; ++index) {
    if (CellRect(1 + index / kDays, index % kDays).contains(position)) {
      return FirstShownDay().addDays(index);
    }
  }
  return {};
}

bool ucCalendar::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<const QHelpEvent*>(event);
  if (help->pos().y() < HeaderHeight()) {
    QToolTip::showText(help->globalPos(), HeaderTip(help->pos()), this);
    return true;
  }
  const QDate day = DayAt(help->pos());
  const bool isMarked = marked_.contains(day) || due_.contains(day);
  const QString text = isMarked ? Qt::convertFromPlainText(Describe(day)) : QString();
  QToolTip::showText(help->globalPos(), text, this, DayRect(day));
  return true;
}

QString ucCalendar::HeaderTip(QPoint position) const {
  for (const bool next : {false, true}) {
    if (YearRect(next).contains(position)) return next ? tr("Next year") : tr("Former year");
    if (ArrowRect(next).contains(position)) return next ? tr("Next month") : tr("Former month");
  }
  return tr("Go to today, %1").arg(locale().toString(today_, QLocale::ShortFormat));
}

bool ucCalendar::TurnAt(QPoint position) {
  if (position.y() >= HeaderHeight()) return false;
  for (const bool next : {false, true}) {
    const int step = next ? 1 : -1;
    if (YearRect(next).contains(position)) TurnMonth(kMonths * step);
    if (ArrowRect(next).contains(position)) TurnMonth(step);
  }
  const bool isTitle =
      position.x() > ArrowRect(false).right() && position.x() < ArrowRect(true).x();
  if (isTitle) GoToToday();
  return true;
}

void ucCalendar::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  const auto add = [&](const char* name, const QString& text, const std::function<void()>& turn) {
    QAction* entry = menu.addAction(text, this, turn);
    entry->setObjectName(QLatin1String(name));
  };
  add("calToday", tr("&Today"), [this] { GoToToday(); });
  menu.addSeparator();
  add("calMonthBack", tr("&Former Month"), [this] { Choose(selected_.addMonths(-1)); });
  add("calMonthOn", tr("&Next Month"), [this] { Choose(selected_.addMonths(1)); });
  add("calYearBack", tr("F&ormer Year"), [this] { Choose(selected_.addYears(-1)); });
  add("calYearOn", tr("N&ext Year"), [this] { Choose(selected_.addYears(1)); });
  const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
  menu.exec(isByMouse ? event->globalPos() : mapToGlobal(DayRect(selected_).bottomLeft()));
}

void ucCalendar::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  if (event->button() == Qt::LeftButton && !TurnAt(position)) Choose(DayAt(position));
}

void ucCalendar::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  if (event->button() != Qt::LeftButton || TurnAt(position)) return;
  // The first click may have turned the page, so that the day now under the mouse is another one.
  Q_EMIT DateActivated(selected_);
}

void ucCalendar::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0) TurnMonth(event->angleDelta().y() < 0 ? 1 : -1);
  event->accept();
}

void ucCalendar::keyPressEvent(QKeyEvent* event) {
  const int forward = isRightToLeft() ? -1 : 1;
  const bool isYear = event->modifiers().testFlag(Qt::ControlModifier);
  switch (event->key()) {
    case Qt::Key_Left:
      return Choose(selected_.addDays(-forward));
    case Qt::Key_Right:
      return Choose(selected_.addDays(forward));
    case Qt::Key_Up:
      return Choose(selected_.addDays(-kDays));
    case Qt::Key_Down:
      return Choose(selected_.addDays(kDays));
    case Qt::Key_PageUp:
      return Choose(selected_.addMonths(isYear ? -kMonths : -1));
    case Qt::Key_PageDown:
      return Choose(selected_.addMonths(isYear ? kMonths : 1));
    case Qt::Key_Home:
      return Choose(today_);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Q_EMIT DateActivated(selected_);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace corvanta::inline controls
