#include "app/register/TotalsLine.h"

#include "controls/MoneyLabel.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Balances.h"
#include "platform/Locale.h"
#include "reports/print/PrintTable.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr int kGap = 3 * kRhythm;
constexpr int kSmallest = 12 * kRhythm;
constexpr int kMaxRows = 3;
constexpr QLatin1String kBetween("    ");

}  // namespace

TotalsLine::TotalsLine(QWidget* parent)
    : QWidget(parent),
      grid_(new QGridLayout(this)),
      rows_(new MutedLabel(this)),
      figure_(new MoneyLabel(this)),
      others_{new MoneyLabel(this), new MoneyLabel(this), new MoneyLabel(this)} {
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
  grid_->setContentsMargins(2 * kRhythm, kRhythm, 2 * kRhythm, kRhythm);
  grid_->setHorizontalSpacing(kGap);
  grid_->setVerticalSpacing(kRhythm / 2);
  grid_->setColumnStretch(0, 1);
  // The rows' number gives way before a figure does.
  rows_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  rows_->setMinimumWidth(1);
  Arrange();
}

void TotalsLine::Show(const QString& rows, const QStringList& figures, bool negative) {
  rowsText_ = rows;
  figures_ = figures;
  figureText_ = figures.join(kBetween);
  figure_->SetNegative(negative);
  ShowTips();
  Arrange();
}

void TotalsLine::Show(const QString& rows, const PeriodTotals& totals, const Locale& money,
                      bool isFiltered) {
  const TotalsTexts texts = TextsOf(totals, money);
  others_[0]->setText(ToQt(texts.paidIn));
  others_[1]->setText(ToQt(texts.paidOut));
  others_[2]->setText(ToQt(texts.thisPeriod));
  if (isFiltered && totals.thisPeriod) {
    others_[2]->setText(tr("These Rows: %1").arg(ToQt(money.FormatNumber(*totals.thisPeriod))));
  }
  others_[1]->SetNegative(totals.paidOut.value_or(0) < 0);
  others_[2]->SetNegative(totals.thisPeriod.value_or(0) < 0);
  hasOthers_ = true;
  Show(rows, QStringList{ToQt(texts.balance)}, totals.balance.value_or(0) < 0);
}

void TotalsLine::ShowTips() {
  QStringList lines{rowsText_};
  for (const QLabel* label : others_) lines.append(label->text());
  lines.append(figures_);
  lines.removeAll(QString());
  setToolTip(lines.join(u'\n'));
}

std::vector<PrintSummary> TotalsLine::Printed() const {
  std::vector<PrintSummary> lines;
  const auto add = [&lines](const QString& figure) {
    if (!figure.isEmpty()) lines.push_back({{}, FromQt(figure)});
  };
  for (const QLabel* label : others_) add(label->text());
  for (const QString& figure : figures_) add(figure);
  if (lines.empty() && !rowsText_.isEmpty()) lines.emplace_back();
  if (!lines.empty()) lines.front().left = FromQt(rowsText_);
  return lines;
}

int TotalsLine::WidthOf(Form form) const {
  const int figure = figure_->fontMetrics().horizontalAdvance(figureText_);
  const auto width = [this](int other) { return others_.at(other)->sizeHint().width(); };
  const int margins = 4 * kRhythm + 1;
  switch (form) {
    case Form::OneRow: {
      const int rows = rows_->fontMetrics().horizontalAdvance(rowsText_);
      const int others = hasOthers_ ? 3 * kGap + width(0) + width(1) + width(2) : 0;
      return margins + rows + kGap + others + figure;
    }
    case Form::TwoRows:
      if (!hasOthers_) return margins + kGap + figure;
      return margins + 2 * kGap + std::max(width(0), width(2)) + std::max(width(1), figure);
    case Form::PeriodAndFigure:
      return margins + kGap + (hasOthers_ ? std::max(width(2), figure) : figure);
    case Form::FigureAlone:
      break;
  }
  return 0;
}

TotalsLine::Form TotalsLine::Fitting() const {
  for (const Form form : {Form::OneRow, Form::TwoRows, Form::PeriodAndFigure}) {
    if (WidthOf(form) <= width()) return form;
  }
  return Form::FigureAlone;
}

// Without the figures of a register: as many of its own in a row as have room, in a few rows.
QString TotalsLine::Wrapped(int room) const {
  QStringList rows;
  for (const QString& figure : figures_) {
    const QString longer = rows.isEmpty() ? figure : rows.last() + kBetween + figure;
    const bool fits = figure_->fontMetrics().horizontalAdvance(longer) <= room;
    if (rows.isEmpty() || (!fits && rows.size() < kMaxRows)) {
      rows.append(figure);
    } else {
      rows.last() = longer;
    }
  }
  return rows.join(u'\n');
}

void TotalsLine::Elide() {
  const auto elided = [](const QLabel& label, const QString& text, int width) {
    QStringList shown;
    for (const QString& row : text.split(u'\n')) {
      shown.append(label.fontMetrics().elidedText(row, Qt::ElideRight, width));
    }
    return shown == QStringList{QStringLiteral("…")} ? QString() : shown.join(u'\n');
  };
  const QString rows = elided(*rows_, rowsText_, rows_->width());
  if (rows != rows_->text()) rows_->setText(rows);
  const int room = std::max(0, width() - 4 * kRhythm - 1 - kGap);
  const QString figure = elided(*figure_, hasOthers_ ? figureText_ : Wrapped(room), room);
  if (figure != figure_->text()) figure_->setText(figure);
}

bool TotalsLine::event(QEvent* event) {
  // The layout has moved the labels by then.
  const bool isLaidOut = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show;
  const bool isTaken = QWidget::event(event);
  if (isLaidOut) Elide();
  return isTaken;
}

QSize TotalsLine::minimumSizeHint() const {
  return {kSmallest, QWidget::minimumSizeHint().height()};
}

void TotalsLine::Arrange() {
  form_ = Fitting();
  const bool isOne = form_ == Form::OneRow;
  const bool hasAll = isOne || form_ == Form::TwoRows;
  others_[0]->setVisible(hasOthers_ && hasAll);
  others_[1]->setVisible(hasOthers_ && hasAll);
  others_[2]->setVisible(hasOthers_ && form_ != Form::FigureAlone);
  grid_->addWidget(rows_, 0, 0);
  grid_->addWidget(others_[0], 0, isOne ? 2 : 4);
  grid_->addWidget(others_[1], 0, isOne ? 3 : 5);
  const bool isAbove = form_ == Form::PeriodAndFigure;
  grid_->addWidget(others_[2], isOne || isAbove ? 0 : 1, isAbove ? 5 : 4);
  // Without others it has a row for itself.
  grid_->addWidget(figure_, isOne ? 0 : 1, isOne || hasOthers_ ? 5 : 0);
  Elide();
  grid_->activate();
  Elide();
}

void TotalsLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // Rows of figures are others in another room.
  if (Fitting() == form_ && hasOthers_) return Elide();
  Arrange();
  updateGeometry();
}

void TotalsLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(Hairline(palette()));
  painter.drawLine(0, 0, width(), 0);
}

}  // namespace corvanta::inline app
