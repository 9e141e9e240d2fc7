#pragma once

#include <QStyledItemDelegate>

namespace corvanta {

// The place of a cell's text in a list: a gap on both sides, a wider one at the edges of the list.
[[nodiscard]] QRect CellTextRect(const QRect& cell, int column, int columns);

// Draws the cells of a list: text, and numbers (what is aligned right) with even digits. The colour
// is the item's own, the background that of the row.
class ListDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  // The text of a cell in the painter's font and colour.
  static void DrawText(QPainter& painter, const QRect& place, const QString& text, bool isNumber);
};

// The background of a chosen row, stronger while the list is in use.
[[nodiscard]] QColor SelectionColour(const QStyleOptionViewItem& option);

}  // namespace corvanta
