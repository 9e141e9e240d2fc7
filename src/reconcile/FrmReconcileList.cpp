#include "reconcile/FrmReconcileList.h"

#include "reconcile/FrmReconcileDelegate.h"
#include "reconcile/FrmReconcileModel.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace corvanta {

FrmReconcileList::FrmReconcileList(QWidget* parent) : SortedTable(parent) {
  setSelectionMode(SingleSelection);
  setAlternatingRowColors(true);
  setItemDelegate(new FrmReconcileDelegate(this));
}

void FrmReconcileList::keyPressEvent(QKeyEvent* event) {
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

int FrmReconcileList::BoxAt(const QMouseEvent& event) const {
  if (event.button() != Qt::LeftButton) return -1;
  const QPoint place = event.position().toPoint();
  const QModelIndex index = indexAt(place);
  if (!index.isValid() || index.column() != FrmReconcileModel::kDate) return -1;
  return FrmReconcileDelegate::TickRect(*this, visualRect(index)).contains(place) ? index.row()
                                                                                  : -1;
}

void FrmReconcileList::mousePressEvent(QMouseEvent* event) {
  const int row = BoxAt(*event);
  if (row < 0) return SortedTable::mousePressEvent(event);
  ChooseRow(row);
  Q_EMIT TickChosen(row);
}

void FrmReconcileList::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second of two quick clicks on a box is a click.
  if (BoxAt(*event) >= 0) return mousePressEvent(event);
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && index.isValid()) Q_EMIT RowOpened(index.row());
}

}  // namespace corvanta
