#include "app/overview/OverviewTile.h"

#include "controls/Elider.h"
#include "controls/MoneyLabel.h"
#include "controls/MutedLabel.h"
#include "controls/Style.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr int kMargin = 2 * kRhythm;
constexpr int kSmallestName = 10 * kRhythm;

QLabel* MakeEmpty(const OverviewTile::Cell& cell, QWidget* parent) {
  if (cell.isMuted) return new MutedLabel(parent);
  auto* label = new MoneyLabel(parent);
  label->SetNegative(cell.isNegative);
  return label;
}

QLabel* MakeLabel(const OverviewTile::Cell& cell, bool isFigure, QWidget* parent) {
  QLabel* label = MakeEmpty(cell, parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(cell.text);
  label->setToolTip(cell.text);
  if (cell.isStrong) label->setFont(ScaledFont(0, QFont::DemiBold));
  if (isFigure) {
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
  }
  // A long name gives way to the figures.
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  label->setMinimumWidth(kSmallestName);
  (new Elider(*label))->SetText(cell.text);
  return label;
}

}  // namespace

OverviewTile::OverviewTile(const char* name, const QString& heading, const QString& tip,
                           QWidget* parent)
    : QFrame(parent), heading_(new QPushButton(heading, this)) {
  setObjectName(QStringLiteral("tile") + QLatin1String(name));
  heading_->setObjectName(QStringLiteral("cmd") + QLatin1String(name));
  heading_->setToolTip(tip);
  heading_->setFlat(true);
  heading_->setFont(ScaledFont(1, QFont::DemiBold));
  heading_->setCursor(Qt::PointingHandCursor);
  heading_->setStyleSheet(QStringLiteral("text-align: left; padding: 2px;"));
  connect(heading_, &QPushButton::clicked, this, &OverviewTile::Chosen);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kRhythm, kMargin, kMargin);
  column->setSpacing(kRhythm / 2);
  column->addWidget(heading_);
}

QString OverviewTile::Heading() const {
  return heading_->text();
}

void OverviewTile::Show(const std::vector<Line>& lines) {
  lines_ = lines;
  if (body_ != nullptr) {
    body_->hide();
    // A line may be in the middle of its click.
    body_->deleteLater();
  }
  body_ = new QWidget(this);
  auto* grid = new QGridLayout(body_);
  grid->setContentsMargins(kRhythm / 2, 0, 0, 0);
  grid->setHorizontalSpacing(2 * kRhythm);
  grid->setVerticalSpacing(kRhythm / 2);
  grid->setColumnStretch(0, 1);
  std::size_t columns = 1;
  for (const Line& line : lines) columns = std::max(columns, line.cells.size());
  int row = 0;
  for (const Line& line : lines) AddLine(line, row++, static_cast<int>(columns));
  layout()->addWidget(body_);
  body_->show();
}

QWidget* OverviewTile::MakeLink(const Line& line) {
  auto* link = new QPushButton(body_);
  link->setFlat(true);
  link->setCursor(Qt::PointingHandCursor);
  link->setStyleSheet(QStringLiteral("text-align: left; padding: 1px;"));
  link->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  link->setMinimumWidth(kSmallestName);
  (new Elider(*link))->SetText(line.cells.front().text);
  link->setToolTip(line.cells.front().text);
  connect(link, &QPushButton::clicked, this, [go = line.go] { go(); });
  return link;
}

void OverviewTile::AddLine(const Line& line, int row, int columns) {
  auto& grid = *static_cast<QGridLayout*>(body_->layout());
  for (std::size_t place = 0; place < line.cells.size(); ++place) {
    const bool isFirst = place == 0;
    QWidget* part =
        isFirst && line.go ? MakeLink(line) : MakeLabel(line.cells[place], !isFirst, body_);
    // A line of one text has the whole width.
    const int span = line.cells.size() == 1 ? columns : 1;
    const int column = isFirst ? 0 : columns - static_cast<int>(line.cells.size() - place);
    grid.addWidget(part, row, column, 1, span);
  }
}

void OverviewTile::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Hairline(palette()));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRhythm, kRhythm);
}

}  // namespace corvanta::inline app
