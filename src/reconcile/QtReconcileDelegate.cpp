#include "reconcile/QtReconcileDelegate.h"

#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "reconcile/QtReconcileModel.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

namespace corvanta::inline reconcile {
namespace {

constexpr int kEdge = 2 * kRhythm;
constexpr int kPicture = 14;

QSize BoxSize(const QWidget& list) {
  return {list.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &list),
          list.style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, &list)};
}

// The style's own box has an outline that is lost on a dark list.
void DrawBox(QPainter& painter, const QRect& box, const QPalette& palette, bool isTicked,
             bool isSelected) {
  const QColor line = isSelected ? palette.color(QPalette::HighlightedText) : MutedText(palette);
  const QColor base = palette.color(QPalette::Base);
  const QRectF frame = QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(isTicked && !isSelected ? AccentColour(palette) : line);
  painter.setBrush(isTicked ? AccentColour(palette) : base);
  painter.drawRoundedRect(frame, 2, 2);
  if (isTicked) {
    const auto at = [&](double x, double y) {
      return QPointF(frame.left() + x * frame.width(), frame.top() + y * frame.height());
    };
    painter.setPen(QPen(base, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.3)}));
  }
  painter.restore();
}

}  // namespace

QtReconcileDelegate::QtReconcileDelegate(QObject* parent)
    : ListDelegate(parent),
      ImgCol_{{QStringLiteral("SCHEDULE"), SvgIcon(QStringLiteral("schedule"))},
              {QStringLiteral("ALLOCATED"), SvgIcon(QStringLiteral("split"))},
              {QStringLiteral("TRANSFER"), SvgIcon(QStringLiteral("transfer"))},
              {QStringLiteral("BLANK"), QIcon()}} {}

QRect QtReconcileDelegate::TickRect(const QWidget& list, const QRect& cell) {
  return {cell.left(), cell.top(), kEdge + BoxSize(list).width() + kRhythm / 2, cell.height()};
}

int QtReconcileDelegate::MarksWidth(const QWidget& list) {
  // The text keeps the edge of a first column, of which a gap of one step is wanted here.
  return kEdge + BoxSize(list).width() + kRhythm + kPicture - kRhythm;
}

void QtReconcileDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  if (index.column() != QtReconcileModel::kDate || option.widget == nullptr) {
    return ListDelegate::paint(painter, option, index);
  }
  const QWidget& list = *option.widget;
  QStyleOptionViewItem text = option;
  text.rect.setLeft(option.rect.left() + MarksWidth(list));
  ListDelegate::paint(painter, text, index);

  QStyleOptionViewItem cell = option;
  MuteSelection(cell);
  const QPalette& palette = cell.palette;
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  const bool odd = (option.features & QStyleOptionViewItem::Alternate) != 0;
  const QRect marks(option.rect.left(), option.rect.top(), MarksWidth(list), option.rect.height());
  painter->fillRect(marks, palette.color(selected ? QPalette::Highlight
                                         : odd    ? QPalette::AlternateBase
                                                  : QPalette::Base));
  QRect box(QPoint(marks.left() + kEdge, 0), BoxSize(list));
  box.moveTop(marks.center().y() - box.height() / 2 + 1);
  DrawBox(*painter, box, palette, index.data(Qt::CheckStateRole).toInt() == Qt::Checked, selected);
  const auto* model = static_cast<const QtReconcileModel*>(index.model());
  const std::string_view image = model->Row(index.row()).image;
  const QRect picture(box.right() + 1 + kRhythm, marks.center().y() - kPicture / 2 + 1, kPicture,
                      kPicture);
  ImgCol_.value(QLatin1String(image.data(), static_cast<qsizetype>(image.size())))
      .paint(painter, picture, Qt::AlignCenter,
             selected && HasKeys(option) ? QIcon::Selected : QIcon::Normal);
}

}  // namespace corvanta::inline reconcile
