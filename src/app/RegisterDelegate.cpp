#include "app/RegisterDelegate.h"

#include "app/RegisterModel.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QPainter>

namespace corvanta::inline app {
namespace {
constexpr int kMark = 14;
constexpr int kMarkGap = 3;
}  // namespace

RegisterDelegate::RegisterDelegate(QObject* parent)
    : ListDelegate(parent),
      split_(SvgIcon(QStringLiteral("split"))),
      transfer_(SvgIcon(QStringLiteral("transfer"))),
      schedule_(SvgIcon(QStringLiteral("schedule"))),
      attachment_(SvgIcon(QStringLiteral("attachment"))),
      keyword_(SvgIcon(QStringLiteral("keyword"))) {}

void RegisterDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  const auto* model = static_cast<const RegisterModel*>(index.model());
  const RegisterRow& row = model->Row(index.row());
  QStyleOptionViewItem cell = option;
  MuteSelection(cell);
  const bool selected = (cell.state & QStyle::State_Selected) != 0;
  const QColor background = Background(cell, index.row());
  painter->save();
  painter->fillRect(option.rect, background);
  if (colours_.grid && !selected) DrawRowLine(*painter, option, background);
  const bool isAhead = model->IsAhead(index.row());
  if (model->IsTodayAbove(index.row())) {
    painter->setPen(QPen(AccentColour(option.palette), 1, Qt::DashLine));
    painter->drawLine(option.rect.topLeft(), option.rect.topRight());
  }
  // As the columns stand in the list, the account behind the date.
  const int place = index.column() == RegisterModel::kAccount ? 1 : index.column();
  QRect text = CellTextRect(option.rect, place, RegisterModel::kBalance + 1);
  if (index.column() == RegisterModel::kPayee) {
    text.setRight(text.right() -
                  DrawMarks(*painter, row, text,
                            selected && HasKeys(option) ? QIcon::Selected : QIcon::Normal));
  }
  QFont font = option.font;
  font.setItalic(isAhead);
  painter->setFont(font);
  painter->setPen(selected ? cell.palette.color(QPalette::HighlightedText)
                           : TextColour(row, index.column(), cell.palette, background));
  DrawText(*painter, text, model->data(index, Qt::DisplayRole).toString(),
           RegisterModel::IsMoney(index.column()));
  painter->restore();
}

QColor RegisterDelegate::Background(const QStyleOptionViewItem& cell, int row) const {
  const QPalette& palette = cell.palette;
  if ((cell.state & QStyle::State_Selected) != 0) return palette.color(QPalette::Highlight);
  const bool odd = row % 2 != 0;
  if (!colours_.ledger) return palette.color(QPalette::Base);
  if (IsDark(palette)) return palette.color(odd ? QPalette::AlternateBase : QPalette::Base);
  return odd ? colours_.alternate2 : colours_.alternate1;
}

QColor RegisterDelegate::TextColour(const RegisterRow& row, int column, const QPalette& palette,
                                    const QColor& background) const {
  if (column == RegisterModel::kPaidOut || (column == RegisterModel::kBalance && row.balance < 0)) {
    return MoneyOutColour(palette);
  }
  if (row.status == "R") return palette.color(QPalette::Text);
  return ReadableOn(row.status == "C" ? colours_.cleared : colours_.uncleared, background);
}

int RegisterDelegate::DrawMarks(QPainter& painter, const RegisterRow& row, const QRect& cell,
                                QIcon::Mode mode) const {
  int width = 0;
  const auto draw = [&](bool shown, const QIcon& icon) {
    if (!shown) return;
    const QRect place(cell.right() + 1 - width - kMark, cell.center().y() - kMark / 2 + 1, kMark,
                      kMark);
    icon.paint(&painter, place, Qt::AlignCenter, mode);
    width += kMark + kMarkGap;
  };
  draw(!row.keywords.empty(), keyword_);
  draw(row.hasAttachment, attachment_);
  draw(row.scheduleId != 0, schedule_);
  draw(row.isTransfer, transfer_);
  draw(row.isSplit, split_);
  return width == 0 ? 0 : width + kMarkGap;
}

}  // namespace corvanta::inline app
