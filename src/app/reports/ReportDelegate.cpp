#include "app/reports/ReportDelegate.h"

#include "controls/Style.h"

#include <QAbstractItemView>
#include <QIcon>
#include <QPainter>

namespace corvanta::inline app {
namespace {

constexpr int kSign = 2 * kRhythm;
constexpr int kIndent = kSign - kRhythm / 2;  // of the first cell's text

// Reports whose rows lead nowhere need no room for the sign.
bool HasSigns(const QModelIndex& index) {
  const QModelIndex first = index.model()->index(0, 0);
  return index.column() == 0 && !first.data(Qt::DecorationRole).isNull();
}

}  // namespace

void ReportDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  if (HasSigns(index)) {
    QStyleOptionViewItem sign = option;
    initStyleOption(&sign, index);
    DrawBackground(*painter, sign);
    cell.rect.setLeft(cell.rect.left() + kIndent);
    ListDelegate::paint(painter, cell, index);
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    // A choice that has no keys is as pale as the list.
    const bool isChosen = (sign.state & QStyle::State_Selected) != 0 && HasKeys(option);
    const QRect place(option.rect.left() + kRhythm / 2, option.rect.center().y() - kSign / 2 + 1,
                      kSign, kSign);
    icon.paint(painter, place, Qt::AlignCenter, isChosen ? QIcon::Selected : QIcon::Normal);
  } else {
    ListDelegate::paint(painter, cell, index);
  }
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
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
  return HasSigns(index) ? size + QSize(kIndent, 0) : size;
}

}  // namespace corvanta::inline app
