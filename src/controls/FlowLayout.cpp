#include "controls/FlowLayout.h"

#include <algorithm>

namespace corvanta::inline controls {

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {}

FlowLayout::~FlowLayout() {
  for (QLayoutItem* item : items_) delete item;
}

void FlowLayout::addItem(QLayoutItem* item) {
  items_.push_back(item);
}

int FlowLayout::count() const {
  return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
  return index < 0 || index >= count() ? nullptr : items_[static_cast<std::size_t>(index)];
}

QLayoutItem* FlowLayout::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item != nullptr) items_.erase(items_.begin() + index);
  return item;
}

int FlowLayout::heightForWidth(int width) const {
  return Arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::sizeHint() const {
  const QMargins margins = contentsMargins();
  int width = 0;
  int height = 0;
  for (const QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;
    width += (width == 0 ? 0 : spacing()) + item->sizeHint().width();
    height = std::max(height, item->sizeHint().height());
  }
  return {width + margins.left() + margins.right(), height + margins.top() + margins.bottom()};
}

QSize FlowLayout::minimumSize() const {
  const QMargins margins = contentsMargins();
  QSize size;
  for (const QLayoutItem* item : items_) {
    if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
  }
  return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  Arrange(place, true);
}

int FlowLayout::Arrange(const QRect& place, bool places) const {
  const QRect room = place.marginsRemoved(contentsMargins());
  int x = room.left();
  int y = room.top();
  int height = 0;
  for (QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;
    const QSize size(std::min(item->sizeHint().width(), room.width()), item->sizeHint().height());
    if (x > room.left() && x + size.width() > room.right() + 1) {
      x = room.left();
      y += height + spacing();
      height = 0;
    }
    if (places) item->setGeometry(QRect(QPoint(x, y), size));
    x += size.width() + spacing();
    height = std::max(height, size.height());
  }
  return y + height - place.top() + contentsMargins().bottom();
}

}  // namespace corvanta::inline controls
