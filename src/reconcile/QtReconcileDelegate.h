#pragma once

#include "controls/ListDelegate.h"

#include <QHash>
#include <QIcon>

namespace corvanta::inline reconcile {

// Draws the cells of the list that is balanced: before the day the tick and the row's picture.
class QtReconcileDelegate : public ListDelegate {
  Q_OBJECT

 public:
  explicit QtReconcileDelegate(QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

  // Where in a cell of the first column the tick is, with the room around it that a hand needs.
  [[nodiscard]] static QRect TickRect(const QWidget& list, const QRect& cell);
  // How wide tick and picture are, from the cell's left edge.
  [[nodiscard]] static int MarksWidth(const QWidget& list);

 private:
  QHash<QString, QIcon> ImgCol_;
};

}  // namespace corvanta::inline reconcile
