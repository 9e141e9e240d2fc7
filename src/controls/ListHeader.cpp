#include "controls/ListHeader.h"

#include "controls/ListDelegate.h"
#include "controls/Style.h"

#include <QPainter>

namespace corvanta::inline controls {

ListHeader::ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setHighlightSections(false);
  setSectionsClickable(false);
  setMinimumSectionSize(4 * kRhythm);
  setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QSize ListHeader::sizeHint() const {
  return {QHeaderView::sizeHint().width(), fontMetrics().height() + kRhythm + 2};
}

void ListHeader::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Window));
    painter.setPen(Hairline(palette()));
    painter.drawLine(0, viewport()->height() - 1, viewport()->width(), viewport()->height() - 1);
  }
  QHeaderView::paintEvent(event);
  QPainter painter(viewport());
  for (const int column : Frozen()) {
    const int left = sectionViewportPosition(column) + FrozenShift();
    paintSection(&painter, QRect(left, 0, sectionSize(column), viewport()->height()), column);
  }
}

void ListHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
  const QString text = model()->headerData(logicalIndex, orientation()).toString();
  const QVariant own = model()->headerData(logicalIndex, orientation(), Qt::TextAlignmentRole);
  const Qt::Alignment alignment = own.isValid() ? own.value<Qt::Alignment>() : defaultAlignment();
  QRect place = CellTextRect(rect, *this, logicalIndex);
  painter->save();
  painter->fillRect(rect, palette().color(QPalette::Window));
  painter->setPen(Hairline(palette()));
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  // The grip of the column's width.
  if (visualIndex(logicalIndex) != count() - 1) {
    painter->drawLine(rect.right(), rect.top() + kRhythm, rect.right(), rect.bottom() - kRhythm);
  }
  painter->setPen(MutedText(palette()));
  if (isSortIndicatorShown() && sortIndicatorSection() == logicalIndex) {
    const QString mark =
        sortIndicatorOrder() == Qt::AscendingOrder ? QStringLiteral("▴") : QStringLiteral("▾");
    const bool isRight = (alignment & Qt::AlignRight) != 0;
    // Beside the text, on the side where the column has room.
    painter->drawText(place, (isRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter, mark);
    const int width = fontMetrics().horizontalAdvance(mark);
    place.adjust(isRight ? width : 0, 0, isRight ? 0 : -width, 0);
  }
  painter->drawText(place, static_cast<int>(alignment) | Qt::TextSingleLine,
                    fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
  painter->restore();
}

}  // namespace corvanta::inline controls
