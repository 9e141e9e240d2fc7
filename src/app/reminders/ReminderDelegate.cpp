#include "app/reminders/ReminderDelegate.h"

#include "controls/ListDelegate.h"
#include "controls/Style.h"
#include "controls/TabularText.h"

#include <QPainter>

namespace corvanta::inline app {
namespace {

bool IsHead(const QModelIndex& index) {
  return !index.data(ReminderDelegate::kAmountRole).isValid();
}

void DrawLine(QPainter& painter, const QRect& place, const QString& text) {
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

}  // namespace

QSize ReminderDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  const int line = option.fontMetrics.height();
  const int height = IsHead(index) ? line + 2 * kRhythm
                                   : line + QFontMetrics(ScaledFont(-1)).height() + kRhythm + 4;
  return {0, height};
}

void ReminderDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  MuteSelection(cell);
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  const QRect place = cell.rect.adjusted(kRhythm, kRhythm / 2, -kRhythm, -kRhythm / 2);
  painter->save();
  if (selected) painter->fillRect(cell.rect, cell.palette.color(QPalette::Highlight));
  const QColor text = cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
  if (IsHead(index)) {
    painter->setFont(ScaledFont(0, QFont::DemiBold));
    painter->setPen(text);
    DrawLine(*painter, place, cell.text);
    painter->restore();
    return;
  }
  const QRect first(place.left(), place.top(), place.width(), cell.fontMetrics.height());
  const QRect second(place.left(), first.bottom() + 2, place.width(),
                     place.bottom() - first.bottom());
  const QString amount = index.data(kAmountRole).toString();
  const int width = TabularWidth(cell.fontMetrics, amount) + kRhythm;
  painter->setFont(cell.font);
  painter->setPen(text);
  DrawLine(*painter, first.adjusted(0, 0, -width, 0), cell.text);
  const bool isOut = index.data(kIsOutRole).toBool();
  if (isOut && !selected) painter->setPen(MoneyOutColour(cell.palette));
  DrawTabular(*painter, first, amount);
  const bool isOverdue = index.data(kIsOverdueRole).toBool();
  QFont small = ScaledFont(-1, isOverdue ? QFont::DemiBold : QFont::Normal);
  painter->setFont(small);
  painter->setPen(selected ? text : MutedText(cell.palette));
  DrawLine(*painter, second, index.data(kDetailsRole).toString());
  painter->restore();
}

}  // namespace corvanta::inline app
