#include "controls/ListDelegate.h"

#include "controls/OutlinedStyle.h"
#include "controls/Style.h"
#include "controls/TabularText.h"

#include <QHeaderView>
#include <QPainter>
#include <QTableView>
#include <QWidget>

namespace corvanta::inline controls {

namespace {

bool HasLines(const QStyleOptionViewItem& option) {
  const QStyle* style = option.widget != nullptr ? option.widget->style() : nullptr;
  return style != nullptr && style->styleHint(kListLines, &option, option.widget) != 0;
}

QRect TextRect(const QRect& cell, const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* list = qobject_cast<const QTableView*>(option.widget);
  if (list != nullptr) return CellTextRect(cell, *list->horizontalHeader(), index.column());
  return CellTextRect(cell, index.column() == 0,
                      index.column() == index.model()->columnCount() - 1);
}

}  // namespace

QRect CellTextRect(const QRect& cell, bool isFirst, bool isLast) {
  return cell.adjusted(isFirst ? 2 * kRhythm : kRhythm, 0, isLast ? -2 * kRhythm : -kRhythm, 0);
}

QRect CellTextRect(const QRect& cell, const QHeaderView& head, int column) {
  const auto isEdge = [&](int step) {
    for (int place = head.visualIndex(column) + step; place >= 0 && place < head.count();
         place += step) {
      if (!head.isSectionHidden(head.logicalIndex(place))) return false;
    }
    return true;
  };
  return CellTextRect(cell, isEdge(-1), isEdge(1));
}

void DrawRowLine(QPainter& painter, const QStyleOptionViewItem& option, const QColor& background) {
  constexpr double kShare = 0.1;
  painter.setPen(Mixed(option.palette.color(QPalette::Text), background, kShare));
  painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

bool HasKeys(const QStyleOptionViewItem& option) {
  const bool isInFront = (option.state & QStyle::State_Active) != 0;
  return isInFront && (option.widget == nullptr || option.widget->hasFocus());
}

void MuteSelection(QStyleOptionViewItem& option) {
  if (HasKeys(option)) return;
  constexpr double kShare = 0.28;
  const QPalette& own = option.palette;
  const QColor text = own.color(QPalette::Active, QPalette::Text);
  const QColor background = Mixed(own.color(QPalette::Active, QPalette::Highlight),
                                  own.color(QPalette::Active, QPalette::Base), kShare);
  option.palette.setColor(QPalette::Highlight, background);
  option.palette.setColor(QPalette::HighlightedText, ReadableOn(text, background));
}

void ListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  MuteSelection(*option);
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  painter->save();
  DrawBackground(*painter, cell);
  painter->setFont(cell.font);
  painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  DrawText(*painter, TextRect(cell.rect, cell, index), cell.text,
           (cell.displayAlignment & Qt::AlignRight) != 0);
  painter->restore();
}

void ListDelegate::DrawBackground(QPainter& painter, const QStyleOptionViewItem& cell) {
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  const bool odd = (cell.features & QStyleOptionViewItem::Alternate) != 0;
  const QColor background = cell.palette.color(selected ? QPalette::Highlight
                                               : odd    ? QPalette::AlternateBase
                                                        : QPalette::Base);
  painter.fillRect(cell.rect, background);
  if (!selected && HasLines(cell)) DrawRowLine(painter, cell, background);
}

QSize ListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QFontMetrics metrics(cell.font);
  const bool isNumber = (cell.displayAlignment & Qt::AlignRight) != 0;
  const int text =
      isNumber ? TabularWidth(metrics, cell.text) : metrics.horizontalAdvance(cell.text);
  // What the gaps leave of a cell.
  constexpr QRect kCell(0, 0, 1000, 1);
  const int gaps = kCell.width() - TextRect(kCell, cell, index).width();
  return {text + gaps + 1, QStyledItemDelegate::sizeHint(option, index).height()};
}

void ListDelegate::DrawText(QPainter& painter, const QRect& place, const QString& text,
                            bool isNumber) {
  if (isNumber) return DrawTabular(painter, place, text);
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

}  // namespace corvanta::inline controls
