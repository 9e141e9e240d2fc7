#pragma once

#include <QStyledItemDelegate>

namespace corvanta::inline controls {

// Draws a cell's text as a number: at the right edge, with even digits, in the item's own colour.
class AmountDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

}  // namespace corvanta::inline controls
