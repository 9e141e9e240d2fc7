#include "app/filter/FilterPanel.h"

#include "controls/Style.h"
#include "ledger/register/FilterChoice.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace corvanta::inline app {

FilterPanel::FilterPanel(QWidget* parent)
    : QFrame(parent, Qt::Popup), cmdNoFilter_(new QPushButton(tr("Show &All Rows"), this)) {
  setObjectName(QStringLiteral("pnlFilter"));
  setAccessibleName(tr("Filters"));
  setFrameShape(QFrame::StyledPanel);
  auto* rows = new QGridLayout(this);
  rows->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  rows->setHorizontalSpacing(2 * kRhythm);
  rows->setVerticalSpacing(kRhythm / 2);
  rows->setColumnMinimumWidth(0, cmdNoFilter_->sizeHint().width() + 2 * kRhythm);
  rows->setColumnStretch(1, 1);
  AddRow(*rows, FilterPiece::Account, tr("A&ccounts..."));
  AddRow(*rows, FilterPiece::Category, tr("Ca&tegories..."));
  AddRow(*rows, FilterPiece::Payee, tr("&Payees..."));
  AddRow(*rows, FilterPiece::Investment, tr("&Investments..."));
  AddRow(*rows, FilterPiece::Keyword, tr("&Keywords..."));
  AddRow(*rows, FilterPiece::Text, tr("Te&xt..."));
  cmdNoFilter_->setObjectName(QStringLiteral("cmdNoFilter"));
  cmdNoFilter_->setToolTip(tr("Take all filters off"));
  cmdNoFilter_->setEnabled(false);
  rows->addWidget(cmdNoFilter_, static_cast<int>(kRows), 0);
  rows->setRowMinimumHeight(static_cast<int>(kRows), 5 * kRhythm);
  connect(cmdNoFilter_, &QPushButton::clicked, this, [this] {
    hide();
    Q_EMIT Cleared();
  });
  setTabOrder(buttons_.back(), cmdNoFilter_);
}

void FilterPanel::AddRow(QGridLayout& rows, FilterPiece piece, const QString& caption) {
  const auto row = static_cast<std::size_t>(piece);
  const QString name = QLatin1String(PieceName(piece));
  auto* button = new QPushButton(caption, this);
  button->setObjectName(QStringLiteral("cmd") + name + QStringLiteral("Filter"));
  auto* label = new QLabel(QLatin1String(kShowAll), this);
  label->setObjectName(QStringLiteral("lbl") + name + QStringLiteral("Filter"));
  label->setTextFormat(Qt::PlainText);
  label->setProperty("tag", QStringLiteral("No"));
  label->setMinimumWidth(30 * kRhythm);
  rows.addWidget(button, static_cast<int>(row), 0);
  rows.addWidget(label, static_cast<int>(row), 1);
  connect(button, &QPushButton::clicked, this, [this, piece] {
    hide();
    Q_EMIT Chosen(piece);
  });
  if (row > 0) setTabOrder(buttons_.at(row - 1), button);
  buttons_.at(row) = button;
  labels_.at(row) = label;
}

void FilterPanel::Show(const FilterStrip::Texts& texts, const FilterStrip::Texts& tips,
                       bool hasOthers) {
  bool isAny = hasOthers;
  for (std::size_t row = 0; row < kRows; ++row) {
    const bool isSet = !texts.at(row).isEmpty();
    isAny = isAny || isSet;
    QLabel& label = *labels_.at(row);
    label.setText(isSet ? texts.at(row) : QLatin1String(kShowAll));
    label.setToolTip(tips.at(row));
    label.setProperty("tag", isSet ? QStringLiteral("Yes") : QStringLiteral("No"));
    label.setFont(ScaledFont(0, isSet ? QFont::DemiBold : QFont::Normal));
    buttons_.at(row)->setAccessibleDescription(label.text());
  }
  cmdNoFilter_->setEnabled(isAny);
}

void FilterPanel::Open(const QWidget& button) {
  adjustSize();
  const QRect screen = button.screen()->availableGeometry();
  QPoint place = button.mapToGlobal(QPoint(button.width() - width(), button.height()));
  if (place.y() + height() > screen.bottom()) place.ry() -= button.height() + height();
  place.setX(
      std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width())));
  move(place);
  show();
  buttons_.front()->setFocus(Qt::PopupFocusReason);
}

void FilterPanel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      hide();
      return;
    case Qt::Key_Down:
      focusNextChild();
      return;
    case Qt::Key_Up:
      focusPreviousChild();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (auto* button = qobject_cast<QPushButton*>(focusWidget())) button->click();
      return;
    default:
      QFrame::keyPressEvent(event);
  }
}

}  // namespace corvanta::inline app
