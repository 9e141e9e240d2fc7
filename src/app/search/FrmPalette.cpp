#include "app/search/FrmPalette.h"

#include "controls/ListTable.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr QSize kSize(74 * kRhythm, 48 * kRhythm);
constexpr int kFromTop = 8 * kRhythm;

QString KindText(PaletteKind kind) {
  switch (kind) {
    case PaletteKind::Account:
      return FrmPalette::tr("Account");
    case PaletteKind::Payee:
      return FrmPalette::tr("Payee");
    case PaletteKind::Category:
      return FrmPalette::tr("Category");
    case PaletteKind::Amount:
      return FrmPalette::tr("Amount");
    case PaletteKind::Day:
      return FrmPalette::tr("Day");
    default:
      return {};
  }
}

QString NameText(const PaletteItem& item) {
  const QString name = ToQt(item.name);
  const QString detail = ToQt(item.detail);
  switch (item.kind) {
    case PaletteKind::Amount:
      return FrmPalette::tr("Find the amount %1").arg(detail);
    case PaletteKind::Day:
      return FrmPalette::tr("Go to %1").arg(detail);
    case PaletteKind::Text:
      return FrmPalette::tr("Find \"%1\" in all accounts").arg(name);
    default:
      return name;
  }
}

QString DetailText(const PaletteItem& item) {
  const bool isTold = item.kind == PaletteKind::Amount || item.kind == PaletteKind::Day;
  QStringList parts{KindText(item.kind)};
  if (!isTold) parts.append(ToQt(item.detail));
  parts.removeAll(QString());
  return parts.join(QStringLiteral("  ·  "));
}

}  // namespace

FrmPalette::FrmPalette(const Palette& palette, QWidget* parent)
    : QuietEnd<QDialog>(parent),
      palette_(palette),
      text_(new QLineEdit(this)),
      list_(new ListTable(this)),
      model_(new QStandardItemModel(0, 2, this)) {
  setObjectName(QStringLiteral("FrmPalette"));
  setWindowTitle(tr("Go To"));
  text_->setObjectName(QStringLiteral("txtGoTo"));
  text_->setPlaceholderText(tr("An account, payee, category, amount, day or command"));
  text_->setAccessibleName(text_->placeholderText());
  text_->setFont(ScaledFont(1));
  text_->addAction(SvgIcon(QStringLiteral("find")), QLineEdit::LeadingPosition);
  text_->installEventFilter(this);
  list_->setObjectName(QStringLiteral("lvGoTo"));
  list_->setAccessibleName(tr("What fits"));
  list_->setModel(model_);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setFocusPolicy(Qt::NoFocus);
  list_->horizontalHeader()->hide();
  const int name = fontMetrics().horizontalAdvance(QStringLiteral("A category:A sub-category"));
  list_->SetColumns({{name, 1, name / 2}, {name, 1, name / 3}});
  connect(text_, &QLineEdit::textChanged, this, &FrmPalette::Fill);
  connect(list_, &QAbstractItemView::clicked, this, &FrmPalette::Choose);
  Arrange();
  Fill();
}

void FrmPalette::Arrange() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kRhythm, kRhythm, kRhythm, kRhythm);
  column->setSpacing(kRhythm);
  column->addWidget(text_);
  column->addWidget(list_, 1);
  resize(kSize);
}

void FrmPalette::showEvent(QShowEvent* event) {
  QuietEnd<QDialog>::showEvent(event);
  const QWidget* window = parentWidget();
  if (window == nullptr) return;
  // Above what it is about, and never larger.
  resize(kSize.boundedTo(window->size() - QSize(4 * kRhythm, 2 * kFromTop)));
  move(window->mapToGlobal(QPoint((window->width() - width()) / 2, kFromTop)));
}

void FrmPalette::Fill() {
  shown_ = palette_.Find(FromQt(text_->text()));
  list_->clearSpans();
  model_->removeRows(0, model_->rowCount());
  for (const PaletteItem& item : shown_) {
    auto* name = new QStandardItem(NameText(item));
    auto* detail = new QStandardItem(DetailText(item));
    name->setToolTip(ToQt(item.name));
    detail->setToolTip(ToQt(item.detail));
    detail->setForeground(MutedText(QGuiApplication::palette()));
    model_->appendRow({name, detail});
    // What was typed, in words, may be long.
    if (detail->text().isEmpty()) list_->setSpan(model_->rowCount() - 1, 0, 1, 2);
  }
  if (!shown_.empty()) list_->selectRow(0);
}

void FrmPalette::Choose() {
  const int row = list_->currentIndex().row();
  if (row < 0 || row >= static_cast<int>(shown_.size())) return;
  chosen_ = shown_[static_cast<std::size_t>(row)];
  accept();
}

bool FrmPalette::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QuietEnd<QDialog>::eventFilter(watched, event);
  switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Choose();
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      QCoreApplication::sendEvent(list_, event);
      return true;
    default:
      return QuietEnd<QDialog>::eventFilter(watched, event);
  }
}

}  // namespace corvanta::inline app
