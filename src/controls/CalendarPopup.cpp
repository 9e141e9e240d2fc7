#include "controls/CalendarPopup.h"

#include "controls/Style.h"
#include "controls/ucCalendar.h"

#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline controls {

CalendarPopup::CalendarPopup(QWidget* parent)
    : QFrame(parent, Qt::Popup), calendar_(new ucCalendar(this)) {
  setObjectName(QStringLiteral("pnlCalendar"));
  setFrameShape(QFrame::StyledPanel);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kRhythm, kRhythm, kRhythm, kRhythm);
  layout->addWidget(calendar_);
  setFocusProxy(calendar_);
  calendar_->installEventFilter(this);
  connect(calendar_, &ucCalendar::DateSelected, this, [this] { isChosen_ = isPressed_; });
  connect(calendar_, &ucCalendar::DateActivated, this, &CalendarPopup::Choose);
}

void CalendarPopup::Open(const QWidget& field, QDate day, QDate today) {
  calendar_->SetToday(today);
  calendar_->SetSelected(day);
  isPressed_ = isChosen_ = false;
  adjustSize();
  const QRect screen = field.screen()->availableGeometry();
  QPoint place = field.mapToGlobal(QPoint(0, field.height()));
  if (place.y() + height() > screen.bottom()) place.ry() -= field.height() + height();
  const int right = std::max(screen.left(), screen.right() - width());
  place.setX(std::clamp(place.x(), screen.left(), right));
  move(place);
  show();
  calendar_->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::Choose(QDate day) {
  hide();
  Q_EMIT DayTaken(day);
}

// The calendar tells of a day when the button goes down; the window goes when it comes up, so that
// the form below never sees half a click.
bool CalendarPopup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    isPressed_ = true;
    isChosen_ = false;
  } else if (event->type() == QEvent::MouseButtonRelease) {
    isPressed_ = false;
    if (isChosen_) Choose(calendar_->Selected());
  } else if (event->type() == QEvent::KeyPress &&
             static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    hide();
    return true;
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace corvanta::inline controls
