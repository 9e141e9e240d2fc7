#include "app/TotalsLine.h"

#include "controls/MutedLabel.h"
#include "controls/Style.h"

#include <QHBoxLayout>
#include <QPainter>

namespace corvanta {

TotalsLine::TotalsLine(QWidget* parent)
    : QWidget(parent), rows_(new MutedLabel(this)), figure_(new QLabel(this)) {
  rows_->setObjectName(QStringLiteral("lblRows"));
  figure_->setObjectName(QStringLiteral("lblBalance"));
  figure_->setFont(ScaledFont(0, QFont::DemiBold));
  figure_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(2 * kRhythm, kRhythm, 2 * kRhythm, kRhythm);
  line->setSpacing(3 * kRhythm);
  line->addWidget(rows_);
  line->addStretch();
  line->addWidget(figure_);
}

void TotalsLine::Show(const QString& rows, const QString& figure, bool negative) {
  rows_->setText(rows);
  figure_->setText(figure);
  figure_->setForegroundRole(QPalette::WindowText);
  QPalette own;
  if (negative) own.setColor(QPalette::WindowText, MoneyOutColour(palette()));
  figure_->setPalette(own);
}

void TotalsLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(Hairline(palette()));
  painter.drawLine(0, 0, width(), 0);
}

}  // namespace corvanta
