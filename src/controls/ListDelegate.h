#pragma once

#include <QStyledItemDelegate>

class QHeaderView;

namespace corvanta::inline controls {

// The place of a cell's text in a list: a gap on both sides, a wider one at the edges of the list.
[[nodiscard]] QRect CellTextRect(const QRect& cell, bool isFirst, bool isLast);
// The same for a column of the list with that head, as far as its columns are shown.
[[nodiscard]] QRect CellTextRect(const QRect& cell, const QHeaderView& head, int column);

// Draws the cells of a list: text, and numbers (what is aligned right) with even digits. The colour
// is the item's own, the background that of the row.
class ListDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  // What the text needs, with the gaps beside it.
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
  // Fills the cell as its row is filled, with the line below it where lists have lines.
  static void DrawBackground(QPainter& painter, const QStyleOptionViewItem& cell);
  // The text of a cell in the painter's font and colour.
  static void DrawText(QPainter& painter, const QRect& place, const QString& text, bool isNumber);
};

// Draws the line below a cell that lists have between their rows.
void DrawRowLine(QPainter& painter, const QStyleOptionViewItem& option, const QColor& background);

// Whether the keys are the list's: it has the focus, in the window in front.
[[nodiscard]] bool HasKeys(const QStyleOptionViewItem& option);
// Mutes the colours of a chosen row while the list has no keys: what is pressed next goes
// elsewhere.
void MuteSelection(QStyleOptionViewItem& option);

}  // namespace corvanta::inline controls
