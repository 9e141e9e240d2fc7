#include "controls/Plot.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Date.h"
#include "platform/DayMarks.h"
#include "platform/Locale.h"
#include "platform/RoundScale.h"

#include <QEvent>
#include <QFontMetrics>
#include <QtCharts/QCategoryAxis>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>

#include <algorithm>
#include <array>
#include <cmath>

namespace corvanta::inline controls {
namespace {

constexpr QSize kLeast(30 * kRhythm, 20 * kRhythm);
constexpr int kStepsAcross = 3;
constexpr int kStepsUp = 5;
constexpr double kMarkSize = 9;
constexpr std::array kStrokes = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};

QRectF RangeOf(const std::vector<PlotSeries>& all) {
  double left = HUGE_VAL;
  double right = -HUGE_VAL;
  double low = HUGE_VAL;
  double high = -HUGE_VAL;
  for (const PlotSeries& series : all) {
    for (const QPointF& point : series.points) {
      left = std::min(left, point.x());
      right = std::max(right, point.x());
      low = std::min(low, point.y());
      high = std::max(high, point.y());
    }
  }
  // One point alone stands in the middle.
  const double across = right > left ? 0 : 1;
  const double up = high > low ? 0 : std::max(1.0, std::abs(high) / 10);
  return QRectF(QPointF(left - across, low - up), QPointF(right + across, high + up));
}

QColor ColourOf(PlotKind kind, std::size_t line, const QPalette& palette) {
  if (kind == PlotKind::Ups) return AccentColour(palette);
  if (kind == PlotKind::Downs) return MoneyOutColour(palette);
  const std::array colours = {AccentColour(palette), MoneyOutColour(palette), MutedText(palette),
                              palette.color(QPalette::Text)};
  return colours.at(line % colours.size());
}

}  // namespace

Plot::Plot(const Locale& locale, QWidget* parent) : QChartView(parent), locale_(locale) {
  setMinimumSize(kLeast);
  setFrameShape(NoFrame);
  setRenderHint(QPainter::Antialiasing);
  chart()->setBackgroundRoundness(0);
  chart()->legend()->setMarkerShape(QLegend::MarkerShapeFromSeries);
  chart()->legend()->setAlignment(Qt::AlignBottom);
  Colour();
}

void Plot::Show(const std::vector<PlotSeries>& all, PlotAcross across, bool fromZero) {
  chart()->removeAllSeries();
  for (QAbstractAxis* axis : chart()->axes()) {
    chart()->removeAxis(axis);
    delete axis;
  }
  kinds_.clear();
  for (const PlotSeries& series : all) {
    if (!series.points.isEmpty()) Add(series);
  }
  if (IsEmpty()) return;
  SetAxes(RangeOf(all), across, fromZero);
  Colour();
}

void Plot::Add(const PlotSeries& series) {
  QXYSeries* shown = nullptr;
  if (series.kind == PlotKind::Line) {
    shown = new QLineSeries(chart());
  } else {
    auto* marks = new QScatterSeries(chart());
    marks->setMarkerShape(series.kind == PlotKind::Ups
                              ? QScatterSeries::MarkerShapeCircle
                              : QScatterSeries::MarkerShapeRotatedRectangle);
    marks->setMarkerSize(kMarkSize);
    shown = marks;
  }
  shown->setName(series.name);
  shown->replace(series.points);
  chart()->addSeries(shown);
  kinds_.push_back(series.kind);
}

void Plot::SetAxes(const QRectF& range, PlotAcross across, bool fromZero) {
  double low = range.top();
  double high = range.bottom();
  if (fromZero) {
    low = std::min(low, 0.0);
    high = std::max(high, 0.0);
  }
  const RoundScale scale = ScaleOf(low, high, kStepsUp);
  QCategoryAxis* acrossAxis =
      AxisOf(range.left(), range.right(), across == PlotAcross::Day, kStepsAcross);
  // The last label stands in the middle of its line, half beyond the chart.
  const QStringList labels = acrossAxis->categoriesLabels();
  const int last =
      labels.isEmpty() ? 0 : QFontMetrics(ScaledFont(-1)).horizontalAdvance(labels.back());
  chart()->setMargins(QMargins(0, 0, last / 2 + kRhythm, 0));
  QCategoryAxis* upAxis = AxisOf(scale.low, scale.high, false, kStepsUp);
  // In a low chart the library would leave nothing of a label that is taller than its step.
  upAxis->setTruncateLabels(false);
  chart()->addAxis(acrossAxis, Qt::AlignBottom);
  chart()->addAxis(upAxis, Qt::AlignLeft);
  for (QAbstractSeries* series : chart()->series()) {
    series->attachAxis(acrossAxis);
    series->attachAxis(upAxis);
  }
}

QCategoryAxis* Plot::AxisOf(double from, double to, bool isDay, int steps) const {
  auto* axis = new QCategoryAxis;
  axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  axis->setRange(from, to);
  if (isDay) {
    const auto day = [](double serial) {
      return Date::FromSerial(static_cast<std::int32_t>(serial));
    };
    // One at each end of a step.
    for (const Date& mark : DayMarks(day(from), day(to), static_cast<std::size_t>(steps) + 1)) {
      axis->append(ToQt(locale_.FormatShortDate(mark)), mark.Serial());
    }
    return axis;
  }
  const double step = RoundStep(to - from, steps);
  const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step))));
  // Counted, as adding up a fraction would drift.
  const double first = std::ceil(from / step) * step;
  for (int i = 0; first + i * step <= to + step / 1000; ++i) {
    const double value = first + i * step;
    axis->append(ToQt(locale_.FormatNumber(value, decimals)), value);
  }
  return axis;
}

void Plot::Colour() {
  setBackgroundBrush(palette().color(QPalette::Window));
  chart()->setBackgroundBrush(palette().color(QPalette::Window));
  chart()->legend()->setLabelBrush(palette().color(QPalette::WindowText));
  chart()->legend()->setFont(ScaledFont(-1));
  for (QAbstractAxis* axis : chart()->axes()) {
    axis->setLabelsBrush(MutedText(palette()));
    axis->setLabelsFont(ScaledFont(-1));
    axis->setGridLinePen(QPen(Hairline(palette()), 1));
    axis->setLinePen(QPen(Hairline(palette()), 1));
  }
  std::size_t line = 0;
  for (std::size_t i = 0; i < kinds_.size(); ++i) {
    auto* series = static_cast<QXYSeries*>(chart()->series().at(static_cast<qsizetype>(i)));
    const QColor colour = ColourOf(kinds_[i], line, palette());
    if (kinds_[i] == PlotKind::Line) {
      series->setPen(QPen(colour, 2, kStrokes.at(line % kStrokes.size())));
      ++line;
      continue;
    }
    series->setBrush(colour);
    series->setPen(QPen(palette().color(QPalette::Window), 1));
  }
}

void Plot::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Colour();
}

}  // namespace corvanta::inline controls
