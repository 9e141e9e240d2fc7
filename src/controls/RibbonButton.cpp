#include "controls/RibbonButton.h"

#include "controls/Style.h"

#include <QAction>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <algorithm>

namespace corvanta::inline controls {
namespace {
constexpr int kIcon = 3 * kRhythm;
constexpr int kGap = kRhythm / 2;
}  // namespace

RibbonButton::RibbonButton(QAction* action, QWidget* parent)
    : QAbstractButton(parent), action_(action) {
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setCheckable(action->isCheckable());
  ApplyState();
  connect(action, &QAction::changed, this, &RibbonButton::ApplyState);
  connect(this, &QAbstractButton::clicked, action, [this] {
    action_->trigger();
    ApplyState();
  });
}

void RibbonButton::ApplyState() {
  setText(action_->iconText());
  setIcon(action_->icon());
  setToolTip(action_->toolTip());
  setAccessibleName(action_->iconText());
  setEnabled(action_->isEnabled());
  setVisible(action_->isVisible());
  setChecked(action_->isChecked());
  updateGeometry();
  update();
}

void RibbonButton::SetRoom(Room room) {
  if (room_ == room) return;
  room_ = room;
  updateGeometry();
  update();
}

QSize RibbonButton::sizeHint() const {
  return {WidthIn(room_), kRhythm + kIcon + kGap + fontMetrics().height() + kRhythm};
}

int RibbonButton::WidthIn(Room room) const {
  constexpr int kSmallest = kIcon + 2 * kRhythm;
  const int text = fontMetrics().horizontalAdvance(this->text());
  switch (room) {
    case Room::Ample:
      return std::max(7 * kRhythm, text + 2 * kRhythm);
    case Room::Tight:
      return std::max(kSmallest, text + kRhythm);
    case Room::Icon:
      break;
  }
  return kSmallest;
}

// What the name says in brackets at its end: the icon alone would hide it.
void RibbonButton::DrawCount(QPainter& painter, const QRect& picture) const {
  const qsizetype open = text().lastIndexOf(u'(');
  if (open < 0) return;
  const QString count = text().mid(open + 1, text().size() - open - 2);
  const QFont small = ScaledFont(-1, QFont::DemiBold);
  const QFontMetrics metrics(small);
  const int high = std::max(metrics.height(), 2 * kRhythm);
  const int wide = std::max(metrics.horizontalAdvance(count) + kRhythm, high);
  // Beside the icon, as far as the button reaches.
  const int left = std::min(picture.right() - kRhythm, width() - wide);
  const QRect badge(left, std::max(0, picture.top() - high / 4), wide, high);
  const QColor accent = AccentColour(palette());
  painter.setPen(Qt::NoPen);
  painter.setBrush(accent);
  painter.drawRoundedRect(badge, high / 2.0, high / 2.0);
  painter.setFont(small);
  painter.setPen(ReadableOn(palette().color(QPalette::Base), accent));
  painter.drawText(badge, Qt::AlignCenter, count);
  painter.setFont(font());
  painter.setPen(palette().color(QPalette::WindowText));
}

void RibbonButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor accent = AccentColour(palette());
  const QColor window = palette().color(QPalette::Window);
  const bool hot = isEnabled() && (underMouse() || isDown());
  if (hot) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Mixed(accent, window, isDown() ? 0.22 : 0.12));
    painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 4, 4);
  }
  const bool isBare = room_ == Room::Icon;
  const int top = isBare ? (height() - kIcon) / 2 : kRhythm;
  const QRect picture((width() - kIcon) / 2, top, kIcon, kIcon);
  icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  painter.setPen(isEnabled() ? palette().color(QPalette::WindowText)
                             : palette().color(QPalette::Disabled, QPalette::WindowText));
  if (isBare) {
    DrawCount(painter, picture);
  } else {
    painter.drawText(QRect(0, picture.bottom() + kGap, width(), fontMetrics().height() + 2),
                     Qt::AlignHCenter | Qt::AlignTop, text());
  }
  if (isChecked()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent);
    painter.drawRoundedRect(QRect(kRhythm, height() - 3, width() - 2 * kRhythm, 3), 1.5, 1.5);
  }
  if (hasFocus()) {
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(2, 2, -2, -2);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }
}

}  // namespace corvanta::inline controls
