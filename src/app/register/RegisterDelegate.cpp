#include "app/register/RegisterDelegate.h"

#include "app/register/RegisterModel.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QPainter>
#include <QTableView>

namespace corvanta::inline app {
namespace {
constexpr int kMark = 14;
constexpr int kMarkGap = 3;

// How wide the marks are that stand behind that of the split, at the right end.
int WidthBehindSplit(const RegisterRow& row) {
  const int marks = (row.keywords.empty() ? 0 : 1) + (row.hasAttachment ? 1 : 0) +
                    (row.scheduleId != 0 ? 1 : 0) + (row.isTransfer ? 1 : 0);
  return marks * (kMark + kMarkGap);
}

// The date stands first and the balance last, and both always stand there.
QRect TextOf(const QRect& cell, int column) {
  return CellTextRect(cell, column == RegisterModel::kDate, column == RegisterModel::kBalance);
}

// The head of an unfolded row; as high as a folded one.
QRect HeadOf(const QRect& cell, int lines) {
  return lines == 0 ? cell
                    : QRect(cell.topLeft(), QSize(cell.width(), cell.height() / (lines + 1)));
}

// A triangle that points to the right, or down.
void DrawTriangle(QPainter& painter, const QRect& place, bool isDown) {
  const QPointF middle = QRectF(place).center();
  constexpr double kLong = 4.0;
  constexpr double kShort = 2.5;
  QPolygonF triangle;
  if (isDown) {
    triangle << middle + QPointF(-kLong, -kShort) << middle + QPointF(kLong, -kShort)
             << middle + QPointF(0, kShort);
  } else {
    triangle << middle + QPointF(-kShort, -kLong) << middle + QPointF(-kShort, kLong)
             << middle + QPointF(kShort, 0);
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(painter.pen().color());
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(triangle);
  painter.restore();
}

// What a split line shows in that column: of a list without a column for its description the
// payee's has it.
QString LineText(const RegisterLine& line, const RegisterModel& model, const QTableView* list,
                 int column) {
  const auto isHidden = [&](int one) { return list != nullptr && list->isColumnHidden(one); };
  switch (column) {
    case RegisterModel::kPayee: {
      QStringList texts;
      if (isHidden(RegisterModel::kCategory)) texts.append(line.category);
      if (isHidden(RegisterModel::kDescription)) texts.append(line.description);
      texts.removeAll(QString());
      return texts.join(QStringLiteral("  ·  "));
    }
    case RegisterModel::kCategory:
      return line.category;
    case RegisterModel::kRef:
      return line.reference;
    case RegisterModel::kDescription:
      return line.description;
    case RegisterModel::kPaidOut:
      return line.amount < 0 ? model.AmountText(line.amount) : QString();
    case RegisterModel::kPaidIn:
      return line.amount < 0 ? QString() : model.AmountText(line.amount);
    default:
      return {};
  }
}
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
  const auto lines = static_cast<int>(model->Lines(row.transactionId).size());
  const QRect head = HeadOf(option.rect, lines);
  const bool isAhead = model->IsAhead(index.row());
  if (model->IsTodayAbove(index.row())) {
    painter->setPen(QPen(AccentColour(option.palette), 1, Qt::DashLine));
    painter->drawLine(option.rect.topLeft(), option.rect.topRight());
  }
  QRect text = TextOf(head, index.column());
  if (index.column() == RegisterModel::kPayee) {
    painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    text.setRight(text.right() -
                  DrawMarks(*painter, row, text,
                            selected && HasKeys(option) ? QIcon::Selected : QIcon::Normal,
                            lines > 0));
  }
  QFont font = option.font;
  font.setItalic(isAhead);
  painter->setFont(font);
  painter->setPen(selected ? cell.palette.color(QPalette::HighlightedText)
                           : TextColour(row, index.column(), cell.palette, background));
  DrawText(*painter, text, model->data(index, Qt::DisplayRole).toString(),
           RegisterModel::IsMoney(index.column()));
  const QColor muted = selected ? cell.palette.color(QPalette::HighlightedText)
                                : ReadableOn(MutedText(cell.palette), background);
  DrawLines(*painter, option, index, muted, selected);
  painter->restore();
}

void RegisterDelegate::DrawLines(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index, const QColor& text, bool isChosen) {
  const auto* model = static_cast<const RegisterModel*>(index.model());
  const std::vector<RegisterLine>& lines = model->Lines(model->Key(index.row()));
  QRect place = HeadOf(option.rect, static_cast<int>(lines.size()));
  const auto* list = qobject_cast<const QTableView*>(option.widget);
  for (const RegisterLine& line : lines) {
    place.translate(0, place.height());
    const bool isOut = index.column() == RegisterModel::kPaidOut;
    painter.setPen(isOut && !isChosen ? MoneyOutColour(option.palette) : text);
    QRect cell = TextOf(place, index.column());
    if (index.column() == RegisterModel::kPayee) cell.adjust(2 * kRhythm, 0, 0, 0);
    DrawText(painter, cell, LineText(line, *model, list, index.column()),
             RegisterModel::IsMoney(index.column()));
  }
}

QRect RegisterDelegate::FoldMark(const QRect& cell, int height, const RegisterRow& row) {
  if (!row.isSplit) return {};
  const QRect text = TextOf(cell, RegisterModel::kPayee);
  const int width = 2 * (kMark + kMarkGap);
  // As high as the row, so that it is easily hit.
  return {text.right() + 1 - WidthBehindSplit(row) - width, cell.top(), width, height};
}

QSize RegisterDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  const QSize text = ListDelegate::sizeHint(option, index);
  if (index.column() != RegisterModel::kPayee) return text;
  const RegisterRow& row = static_cast<const RegisterModel*>(index.model())->Row(index.row());
  const int behind = WidthBehindSplit(row) + (row.isSplit ? 2 * (kMark + kMarkGap) : 0);
  return text + QSize(behind == 0 ? 0 : behind + kMarkGap, 0);
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
                                QIcon::Mode mode, bool isUnfolded) const {
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
  if (row.isSplit) {
    const QRect place(cell.right() + 1 - width - kMark, cell.center().y() - kMark / 2 + 1, kMark,
                      kMark);
    DrawTriangle(painter, place, isUnfolded);
    width += kMark + kMarkGap;
  }
  return width == 0 ? 0 : width + kMarkGap;
}

}  // namespace corvanta::inline app
