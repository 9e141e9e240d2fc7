#include "app/TotalsLine.h"

#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/Balances.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>

namespace corvanta {
namespace {

constexpr int kGap = 3 * kRhythm;

void Colour(QLabel& label, bool negative) {
  QPalette own;
  if (negative) own.setColor(QPalette::WindowText, MoneyOutColour(label.parentWidget()->palette()));
  label.setPalette(own);
}

}  // namespace

TotalsLine::TotalsLine(QWidget* parent)
    : QWidget(parent),
      grid_(new QGridLayout(this)),
      rows_(new MutedLabel(this)),
      figure_(new QLabel(this)),
      others_{new QLabel(this), new QLabel(this), new QLabel(this)} {
  rows_->setObjectName(QStringLiteral("lblRows"));
  figure_->setObjectName(QStringLiteral("lblBalance"));
  figure_->setFont(ScaledFont(0, QFont::DemiBold));
  others_[0]->setObjectName(QStringLiteral("lblPaidIn"));
  others_[1]->setObjectName(QStringLiteral("lblPaidOut"));
  others_[2]->setObjectName(QStringLiteral("lblThisPeriod"));
  for (QLabel* label : {others_[0], others_[1], others_[2], figure_}) {
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
  for (QLabel* label : others_) label->hide();
  grid_->setContentsMargins(2 * kRhythm, kRhythm, 2 * kRhythm, kRhythm);
  grid_->setHorizontalSpacing(kGap);
  grid_->setVerticalSpacing(kRhythm / 2);
  grid_->setColumnStretch(0, 1);
  rows_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Arrange();
}

void TotalsLine::Show(const QString& rows, const QString& figure, bool negative) {
  rowsText_ = rows;
  rows_->setToolTip(rows);
  figure_->setText(figure);
  Colour(*figure_, negative);
  ElideRows();
}

void TotalsLine::ElideRows() {
  const QString shown = rows_->fontMetrics().elidedText(rowsText_, Qt::ElideRight, rows_->width());
  if (shown != rows_->text()) rows_->setText(shown);
}

bool TotalsLine::event(QEvent* event) {
  // The layout has moved the labels by then.
  const bool isLaidOut = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show;
  const bool isTaken = QWidget::event(event);
  if (isLaidOut) ElideRows();
  return isTaken;
}

void TotalsLine::Show(const QString& rows, const PeriodTotals& totals, const Locale& money) {
  const TotalsTexts texts = TextsOf(totals, money);
  Show(rows, ToQt(texts.balance), totals.balance.value_or(0) < 0);
  others_[0]->setText(ToQt(texts.paidIn));
  others_[1]->setText(ToQt(texts.paidOut));
  others_[2]->setText(ToQt(texts.thisPeriod));
  Colour(*others_[1], totals.paidOut.value_or(0) < 0);
  Colour(*others_[2], totals.thisPeriod.value_or(0) < 0);
  for (QLabel* label : others_) label->show();
  isNarrow_ = WidthInOneRow() > width();
  Arrange();
  grid_->activate();
  ElideRows();
}

int TotalsLine::WidthInOneRow() const {
  int width = 4 * kRhythm + rows_->fontMetrics().horizontalAdvance(rowsText_) + kGap +
              figure_->sizeHint().width();
  for (const QLabel* label : others_) {
    if (!label->isHidden()) width += kGap + label->sizeHint().width();
  }
  return width;
}

QSize TotalsLine::minimumSizeHint() const {
  const int figures = others_[2]->isHidden()
                          ? figure_->sizeHint().width()
                          : kGap + others_[2]->sizeHint().width() + figure_->sizeHint().width();
  return {4 * kRhythm + figures, QWidget::minimumSizeHint().height()};
}

void TotalsLine::Arrange() {
  // The rows' number gives way before a figure does.
  rows_->setMinimumWidth(1);
  grid_->addWidget(rows_, 0, 0);
  grid_->addWidget(others_[0], 0, isNarrow_ ? 4 : 2);
  grid_->addWidget(others_[1], 0, isNarrow_ ? 5 : 3);
  grid_->addWidget(others_[2], isNarrow_ ? 1 : 0, 4);
  grid_->addWidget(figure_, isNarrow_ ? 1 : 0, 5);
}

void TotalsLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const bool narrow = WidthInOneRow() > width();
  ElideRows();
  if (narrow == isNarrow_) return;
  isNarrow_ = narrow;
  Arrange();
  updateGeometry();
}

void TotalsLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(Hairline(palette()));
  painter.drawLine(0, 0, width(), 0);
}

}  // namespace corvanta
