#include "app/reports/ReportDelegate.h"

#include "controls/Style.h"

#include <QAbstractItemView>
#include <QIcon>
#include <QPainter>

namespace corvanta::inline app {
namespace {
constexpr int kSign = 2 * kRhythm;
constexpr int kIndent = kSign + kRhythm / 2;  // of the first cell
}  // namespace

void ReportDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  const bool isFirst = index.column() == 0;
  QStyleOptionViewItem cell = option;
  if (isFirst) {
    // The background of the whole cell; the text begins behind the sign.
    QStyleOptionViewItem sign = option;
    initStyleOption(&sign, index);
    DrawBackground(*painter, sign);
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    const bool isChosen = (sign.state & QStyle::State_Selected) != 0;
    const QRect place(option.rect.left() + kRhythm / 2, option.rect.center().y() - kSign / 2 + 1,
                      kSign, kSign);
    icon.paint(painter, place, Qt::AlignCenter, isChosen ? QIcon::Selected : QIcon::Normal);
    cell.rect.setLeft(cell.rect.left() + kIndent - kRhythm);
  }
  ListDelegate::paint(painter, cell, index);
  const bool isCurrent = view != nullptr && view->currentIndex() == index && HasKeys(option);
  if (!isCurrent) return;
  painter->save();
  const bool isChosen = (option.state & QStyle::State_Selected) != 0;
  painter->setPen(option.palette.color(isChosen ? QPalette::HighlightedText : QPalette::Text));
  painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
  painter->restore();
}

QSize ReportDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QSize size = ListDelegate::sizeHint(option, index);
  return index.column() == 0 ? size + QSize(kIndent, 0) : size;
}

}  // namespace corvanta::inline app
