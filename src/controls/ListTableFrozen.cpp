// The columns of a list that stay in sight while the others scroll.
#include "controls/ListHeader.h"
#include "controls/ListTable.h"
#include "controls/Style.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace corvanta::inline controls {

ListHeader& ListTable::Head() const {
  return static_cast<ListHeader&>(*horizontalHeader());
}

void ListTable::SetNames(int columns) {
  Head().SetNames(columns);
  viewport()->update();
}

QModelIndex ListTable::indexAt(const QPoint& place) const {
  const QRect frozen = Head().FrozenPlace();
  const bool isFrozen = place.x() >= frozen.left() && place.x() <= frozen.right();
  return QTableView::indexAt(isFrozen ? place - QPoint(Head().FrozenShift(), 0) : place);
}

QRect ListTable::visualRect(const QModelIndex& index) const {
  const QRect place = QTableView::visualRect(index);
  const bool isFrozen = index.isValid() && Head().IsFrozen(index.column());
  return isFrozen ? place.translated(Head().FrozenShift(), 0) : place;
}

void ListTable::ScrollTo(const QModelIndex& shown, ScrollHint hint) {
  QScrollBar& bar = *horizontalScrollBar();
  const int before = bar.value();
  QTableView::scrollTo(shown, hint);
  const QRect frozen = Head().FrozenPlace();
  if (frozen.isEmpty() || !shown.isValid()) return;
  if (Head().IsFrozen(shown.column())) return bar.setValue(before);
  const QRect place = QTableView::visualRect(shown);
  const int covered =
      isRightToLeft() ? place.right() + 1 - frozen.left() : frozen.right() + 1 - place.left();
  if (covered > 0) bar.setValue(bar.value() - covered);
}

void ListTable::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  ClipCellWidgets();
  if (dx == 0 || Head().FrozenPlace().isEmpty()) return;
  // What was on the screen has been moved with the others.
  viewport()->update();
  Head().viewport()->update();
}

void ListTable::updateEditorGeometries() {
  QTableView::updateEditorGeometries();
  ClipCellWidgets();
}

void ListTable::ClipCellWidgets() {
  QRect frozen = Head().FrozenShift() != 0 ? Head().FrozenPlace() : QRect();
  frozen.setHeight(viewport()->height());
  for (QWidget* child : viewport()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    const QModelIndex cell = QTableView::indexAt(child->geometry().center());
    if (indexWidget(cell) != child) continue;
    const QRect covered = frozen.translated(-child->pos()) & child->rect();
    if (covered.isEmpty() || Head().IsFrozen(cell.column())) {
      child->clearMask();
      continue;
    }
    // One that is hidden would lose the keys, and an empty mask hides nothing.
    const QRegion seen = QRegion(child->rect()) - covered;
    child->setMask(seen.isEmpty() ? QRegion(-1, -1, 1, 1) : seen);
  }
}

void ListTable::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  const QRect frozen = Head().FrozenPlace();
  if (frozen.isEmpty() || Head().FrozenShift() == 0 || model()->rowCount() == 0) return;
  const QRect dirty = event->rect();
  QPainter painter(viewport());
  const int last = rowAt(dirty.bottom());
  const int end = last < 0 ? model()->rowCount() : last + 1;
  int bottom = dirty.top();
  for (int row = std::max(0, rowAt(dirty.top())); row < end; ++row) {
    if (isRowHidden(row)) continue;
    for (int column = 0; column < model()->columnCount(); ++column) {
      if (Head().IsFrozen(column)) PaintFrozen(painter, model()->index(row, column));
    }
    bottom = rowViewportPosition(row) + rowHeight(row) - 1;
  }
  painter.setPen(Hairline(palette()));
  const int edge = isRightToLeft() ? frozen.left() : frozen.right();
  painter.drawLine(edge, dirty.top(), edge, std::min(dirty.bottom(), bottom));
}

void ListTable::PaintFrozen(QPainter& painter, const QModelIndex& index) {
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.rect = visualRect(index);
  if (alternatingRowColors() && index.row() % 2 == 1) {
    option.features |= QStyleOptionViewItem::Alternate;
  }
  if (selectionModel()->isSelected(index)) option.state |= QStyle::State_Selected;
  if (hasFocus() && index == currentIndex()) option.state |= QStyle::State_HasFocus;
  if ((index.flags() & Qt::ItemIsEnabled) == 0) option.state &= ~QStyle::State_Enabled;
  painter.save();
  painter.setClipRect(option.rect);
  itemDelegateForIndex(index)->paint(&painter, option, index);
  painter.restore();
}

}  // namespace corvanta::inline controls
