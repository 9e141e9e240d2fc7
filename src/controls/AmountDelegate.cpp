#include "controls/AmountDelegate.h"

#include "controls/Style.h"
#include "controls/TabularText.h"

#include <QApplication>
#include <QPainter>

namespace corvanta::inline controls {

void AmountDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QString text = cell.text;
  cell.text.clear();
  const QWidget* widget = option.widget;
  const QStyle* style = widget != nullptr ? widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, widget);
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  painter->save();
  painter->setFont(cell.font);
  painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  DrawTabular(*painter, cell.rect.adjusted(kRhythm / 2, 0, -kRhythm, 0), text);
  painter->restore();
}

QSize AmountDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QSize size = QStyledItemDelegate::sizeHint(option, index);
  return {TabularWidth(QFontMetrics(cell.font), cell.text) + 2 * kRhythm, size.height()};
}

}  // namespace corvanta::inline controls
