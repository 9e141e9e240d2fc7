#include "app/investments/HoldingsCharts.h"

#include "controls/HairSplitter.h"
#include "controls/MutedLabel.h"
#include "controls/Plot.h"
#include "controls/Style.h"

#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

// More points than a screen has columns show nothing more.
constexpr int kMaxPoints = 1500;
constexpr int kRoomForBoth = 76 * kRhythm;

bool IsIn(Date day, const Period& period) {
  return day >= period.from && day <= period.to;
}

QPointF PointOf(Date day, double amount) {
  return {static_cast<double>(day.Serial()), amount};
}

QList<QPointF> Thinned(const QList<QPointF>& points) {
  const qsizetype step = points.size() / kMaxPoints + 1;
  if (step == 1) return points;
  QList<QPointF> few;
  for (qsizetype i = 0; i < points.size(); i += step) few.append(points[i]);
  few.append(points.last());
  return few;
}

Date FirstDay(HoldingTracks tracks, const Period& period) {
  Date first = period.to;
  for (const HoldingTrack* track : tracks) {
    if (!track->rows.empty()) first = std::min(first, track->rows.front().day);
  }
  return std::max(first, period.from);
}

QLabel* MakeCaption(const char* name, QWidget* parent) {
  auto* caption = new MutedLabel(parent);
  caption->setObjectName(QLatin1String(name));
  caption->setTextFormat(Qt::PlainText);
  caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  caption->setContentsMargins(2 * kRhythm, kRhythm, 0, 0);
  return caption;
}

}  // namespace

HoldingsCharts::HoldingsCharts(const Locale& locale, QWidget* parent)
    : QWidget(parent),
      lblPrices_(MakeCaption("lblPrices", this)),
      lblValue_(MakeCaption("lblValue", this)),
      prices_(new Plot(locale, this)),
      value_(new Plot(locale, this)),
      valueFrame_(Framed(*lblValue_, *value_)) {
  prices_->setObjectName(QStringLiteral("chartPrices"));
  prices_->setAccessibleName(tr("Prices, with what was bought and sold"));
  value_->setObjectName(QStringLiteral("chartValue"));
  value_->setAccessibleName(tr("Worth over time"));
  auto* both = new HairSplitter(Qt::Horizontal, this);
  both->setChildrenCollapsible(false);
  both->addWidget(Framed(*lblPrices_, *prices_));
  both->addWidget(valueFrame_);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(0, 0, 0, 0);
  page->addWidget(both);
}

QWidget* HoldingsCharts::Framed(QLabel& caption, Plot& plot) {
  auto* frame = new QWidget(this);
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(&caption);
  column->addWidget(&plot, 1);
  plot.setFocusPolicy(Qt::NoFocus);
  return frame;
}

void HoldingsCharts::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  valueFrame_->setVisible(width() >= kRoomForBoth);
}

void HoldingsCharts::ShowPrices(const QString& name, const HoldingTrack& track,
                                const Period& period) {
  PlotSeries prices{tr("Price")};
  PlotSeries bought{tr("Bought"), PlotKind::Ups};
  PlotSeries sold{tr("Sold"), PlotKind::Downs};
  for (const DayPrice& price : track.prices) {
    if (IsIn(price.date, period)) prices.points.append(PointOf(price.date, price.price));
  }
  for (const HoldingRow& row : track.rows) {
    if (!IsIn(row.day, period) || row.price <= 0) continue;
    if (row.Is(InvestAction::Sell)) sold.points.append(PointOf(row.day, row.price));
    if (row.Is(InvestAction::Buy) || row.Is(InvestAction::ReinvestDividend)) {
      bought.points.append(PointOf(row.day, row.price));
    }
  }
  prices.points = Thinned(prices.points);
  lblPrices_->setText(tr("Prices of %1").arg(name));
  prices_->Show({prices, bought, sold}, PlotAcross::Day, false);
}

void HoldingsCharts::ShowValue(const QString& name, HoldingTracks tracks, const Period& period) {
  PlotSeries worth{tr("Worth")};
  const Period shown{FirstDay(tracks, period), period.to};
  for (const DayValue& value : ValueOverTime(tracks, shown, kMaxPoints)) {
    worth.points.append(PointOf(value.day, value.value));
  }
  lblValue_->setText(tr("Worth of %1").arg(name));
  value_->Show({worth}, PlotAcross::Day, true);
}

void HoldingsCharts::Clear() {
  lblPrices_->clear();
  lblValue_->clear();
  prices_->Clear();
  value_->Clear();
}

}  // namespace corvanta::inline app
