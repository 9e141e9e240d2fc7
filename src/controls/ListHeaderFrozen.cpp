// The columns of a list that stay in sight while the others scroll.
#include "controls/ListHeader.h"

#include <QMouseEvent>
#include <QStyle>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace corvanta::inline controls {
namespace {

// The same as if it had happened so many pixels further to the left.
QMouseEvent Shifted(const QMouseEvent& event, int shift) {
  return {event.type(),          event.position() - QPointF(shift, 0),
          event.scenePosition(), event.globalPosition(),
          event.button(),        event.buttons(),
          event.modifiers(),     event.pointingDevice()};
}

}  // namespace

void ListHeader::SetNames(int columns) {
  names_ = columns;
  viewport()->update();
}

std::vector<int> ListHeader::Frozen() const {
  const int room = viewport()->width();
  std::vector<int> frozen;
  int width = 0;
  for (int place = 0; place < count() && length() > room; ++place) {
    const int column = logicalIndex(place);
    if (isSectionHidden(column)) continue;
    width += sectionSize(column);
    const bool hasRoom = 3 * width <= 2 * room;
    // The first one that is shown stays whichever it is.
    if (!hasRoom || (!frozen.empty() && column >= names_)) break;
    frozen.push_back(column);
  }
  return frozen;
}

QRect ListHeader::FrozenPlace() const {
  int width = 0;
  for (const int column : Frozen()) width += sectionSize(column);
  return {isRightToLeft() ? viewport()->width() - width : 0, 0, width, viewport()->height()};
}

bool ListHeader::IsFrozen(int column) const {
  return std::ranges::count(Frozen(), column) > 0;
}

int ListHeader::FrozenShift() const {
  return isRightToLeft() ? -offset() : offset();
}

int ListHeader::ColumnAt(const QPoint& place) const {
  return logicalIndexAt(FrozenPlace().contains(place) ? place - QPoint(FrozenShift(), 0) : place);
}

int ListHeader::FrozenGripAt(const QPoint& place) const {
  const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
  for (const int column : Frozen()) {
    const int left = sectionViewportPosition(column) + FrozenShift();
    const int edge = isRightToLeft() ? left : left + sectionSize(column);
    if (std::abs(place.x() - edge) <= grip) return column;
  }
  return -1;
}

void ListHeader::mousePressEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool isPulled = event->button() == Qt::LeftButton && FrozenShift() != 0;
  pulled_ = isPulled ? FrozenGripAt(place) : -1;
  if (pulled_ >= 0) {
    pulledFrom_ = place.x();
    pulledSize_ = sectionSize(pulled_);
    return;
  }
  shift_ = FrozenPlace().contains(place) ? FrozenShift() : 0;
  QMouseEvent shifted = Shifted(*event, shift_);
  QHeaderView::mousePressEvent(&shifted);
}

// The class below takes no place for one that lies out of its sight.
void ListHeader::mouseMoveEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool isPressed = event->buttons() != Qt::NoButton;
  if (isPressed && pulled_ >= 0) {
    const int by = isRightToLeft() ? pulledFrom_ - place.x() : place.x() - pulledFrom_;
    resizeSection(pulled_,
                  std::clamp(pulledSize_ + by, minimumSectionSize(), maximumSectionSize()));
    return;
  }
  const bool isGrip = FrozenGripAt(place) >= 0;
  if (!isPressed && FrozenShift() != 0 && (isGrip || FrozenPlace().contains(place))) {
    isGrip ? setCursor(Qt::SplitHCursor) : unsetCursor();
    return;
  }
  QMouseEvent shifted = Shifted(*event, isPressed ? shift_ : 0);
  QHeaderView::mouseMoveEvent(&shifted);
}

void ListHeader::mouseReleaseEvent(QMouseEvent* event) {
  if (std::exchange(pulled_, -1) >= 0) return;
  QMouseEvent shifted = Shifted(*event, shift_);
  QHeaderView::mouseReleaseEvent(&shifted);
}

void ListHeader::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool isFrozen = FrozenPlace().contains(place) || FrozenGripAt(place) >= 0;
  QMouseEvent shifted = Shifted(*event, isFrozen ? FrozenShift() : 0);
  QHeaderView::mouseDoubleClickEvent(&shifted);
}

}  // namespace corvanta::inline controls
