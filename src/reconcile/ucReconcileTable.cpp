#include "reconcile/ucReconcileTable.h"

#include "reconcile/QtReconcileDelegate.h"
#include "reconcile/QtReconcileModel.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace corvanta::inline reconcile {

ucReconcileTable::ucReconcileTable(QWidget* parent) : SortedTable(parent) {
  setSelectionMode(SingleSelection);
  setAlternatingRowColors(true);
  setItemDelegate(new QtReconcileDelegate(this));
}

void ucReconcileTable::keyPressEvent(QKeyEvent* event) {
  const int row = currentIndex().row();
  switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
      if (row >= 0) Q_EMIT TickChosen(row);
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (row >= 0) Q_EMIT RowOpened(row);
      return;
    default:
      SortedTable::keyPressEvent(event);
  }
}

int ucReconcileTable::BoxAt(const QMouseEvent& event) const {
  if (event.button() != Qt::LeftButton) return -1;
  const QPoint place = event.position().toPoint();
  const QModelIndex index = indexAt(place);
  if (!index.isValid() || index.column() != QtReconcileModel::kDate) return -1;
  return QtReconcileDelegate::TickRect(*this, visualRect(index)).contains(place) ? index.row() : -1;
}

void ucReconcileTable::mousePressEvent(QMouseEvent* event) {
  const int row = BoxAt(*event);
  if (row < 0) return SortedTable::mousePressEvent(event);
  ChooseRow(row);
  Q_EMIT TickChosen(row);
}

void ucReconcileTable::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second of two quick clicks on a box is a click.
  if (BoxAt(*event) >= 0) return mousePressEvent(event);
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && index.isValid()) Q_EMIT RowOpened(index.row());
}

}  // namespace corvanta::inline reconcile
