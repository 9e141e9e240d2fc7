#include "controls/ListDelegate.h"

#include "controls/Style.h"
#include "controls/TabularText.h"

#include <QPainter>

namespace corvanta {

QRect CellTextRect(const QRect& cell, int column, int columns) {
  const int left = column == 0 ? 2 * kRhythm : kRhythm;
  const int right = column == columns - 1 ? 2 * kRhythm : kRhythm;
  return cell.adjusted(left, 0, -right, 0);
}

QColor SelectionColour(const QStyleOptionViewItem& option) {
  const bool active = (option.state & QStyle::State_Active) != 0;
  return option.palette.color(active ? QPalette::Active : QPalette::Inactive, QPalette::Highlight);
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  const bool odd = (cell.features & QStyleOptionViewItem::Alternate) != 0;
  painter->save();
  painter->fillRect(cell.rect,
                    selected ? SelectionColour(cell)
                             : cell.palette.color(odd ? QPalette::AlternateBase : QPalette::Base));
  painter->setFont(cell.font);
  painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  DrawText(*painter, CellTextRect(cell.rect, index.column(), index.model()->columnCount()),
           cell.text, (cell.displayAlignment & Qt::AlignRight) != 0);
  painter->restore();
}

void ListDelegate::DrawText(QPainter& painter, const QRect& place, const QString& text,
                            bool isNumber) {
  if (isNumber) return DrawTabular(painter, place, text);
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

}  // namespace corvanta
