#include "reports/chart/QtChartPlot.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Date.h"
#include "platform/Locale.h"
#include "reports/chart/ChartLook.h"

#include <QGraphicsLayout>
#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QCategoryAxis>
#include <QtCharts/QChart>
#include <QtCharts/QHorizontalBarSeries>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QStackedBarSeries>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace corvanta::inline reports {
namespace {

constexpr double kLineWidth = 2;
constexpr std::size_t kMaxMarked = 60;  // points of a line that are shown as such
constexpr std::array kStrokes = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};

double SerialOf(const std::string& day) {
  return static_cast<double>(Date::FromIso(day).value_or(Date()).Serial());
}

QAbstractBarSeries* MakeBars(ChartKind kind, QChart& chart) {
  if (kind == ChartKind::Bars) return new QHorizontalBarSeries(&chart);
  if (kind == ChartKind::Stacked) return new QStackedBarSeries(&chart);
  return new QBarSeries(&chart);
}

}  // namespace

Qt::PenStyle StrokeOf(std::size_t series) {
  return kStrokes.at(series % kStrokes.size());
}

QtChartPlot::QtChartPlot(const Locale& locale, QChart& chart) : locale_(locale), chart_(chart) {
  chart_.setBackgroundRoundness(0);
  // The page around it has margins of its own.
  chart_.layout()->setContentsMargins(0, 0, 0, 0);
  // The library's own legend cuts the names.
  chart_.legend()->hide();
}

void QtChartPlot::Clear() {
  chart_.removeAllSeries();
  for (QAbstractAxis* axis : chart_.axes()) {
    chart_.removeAxis(axis);
    delete axis;
  }
  shown_.clear();
  bars_ = nullptr;
  categories_ = nullptr;
  values_ = nullptr;
}

void QtChartPlot::Show(ChartData chartData, const QSize& room) {
  Clear();
  data_ = std::move(chartData);
  if (data_.IsEmpty()) return;
  shown_.resize(data_.series.size());
  AddBars();
  AddLines();
  AddAxes();
  Fit(room);
}

int QtChartPlot::IndexOf(std::size_t category) const {
  const auto index = static_cast<int>(category);
  return LiesAcross() ? static_cast<int>(data_.categories.size()) - 1 - index : index;
}

std::size_t QtChartPlot::CategoryOf(int index) const {
  return static_cast<std::size_t>(
      LiesAcross() ? static_cast<int>(data_.categories.size()) - 1 - index : index);
}

double QtChartPlot::AlongAxis(std::size_t category) const {
  return data_.areDays ? SerialOf(data_.categories[category]) : IndexOf(category);
}

void QtChartPlot::AddBars() {
  if (data_.kind == ChartKind::Lines) return;
  bars_ = MakeBars(data_.kind, chart_);
  for (std::size_t place = 0; place < data_.series.size(); ++place) {
    const std::size_t series = LiesAcross() ? data_.series.size() - 1 - place : place;
    if (!data_.series[series].isLine) AddBarSet(series);
  }
  chart_.addSeries(bars_);
}

void QtChartPlot::AddBarSet(std::size_t series) {
  const auto& points = data_.series[series].points;
  auto* set = new QBarSet(ToQt(SeriesText(data_, series)), bars_);
  for (int index = 0; index < static_cast<int>(points.size()); ++index) {
    const auto& point = points[CategoryOf(index)];
    set->append(point ? point->value : 0);
  }
  connect(set, &QBarSet::hovered, this, [this, series](bool isOver, int index) {
    Q_EMIT Hovered({series, CategoryOf(index)}, isOver);
  });
  connect(set, &QBarSet::clicked, this, [this, series](int index) {
    Q_EMIT Clicked({series, CategoryOf(index)});
  });
  shown_[series].bars = set;
  bars_->append(set);
}

void QtChartPlot::AddLines() {
  for (std::size_t i = 0; i < data_.series.size(); ++i) {
    if (data_.series[i].isLine || data_.kind == ChartKind::Lines) AddLine(i);
  }
}

void QtChartPlot::AddLine(std::size_t series) {
  auto* line = new QLineSeries(&chart_);
  line->setName(ToQt(SeriesText(data_, series)));
  const auto& points = data_.series[series].points;
  QList<QPointF> places;
  for (std::size_t category = 0; category < points.size(); ++category) {
    if (points[category]) places.append({AlongAxis(category), points[category]->value});
  }
  line->replace(places);
  line->setPointsVisible(points.size() <= kMaxMarked);
  connect(line, &QLineSeries::hovered, this, [this, series](const QPointF& point, bool isOver) {
    Q_EMIT Hovered(NearestOf(series, point), isOver);
  });
  connect(line, &QLineSeries::clicked, this,
          [this, series](const QPointF& point) { Q_EMIT Clicked(NearestOf(series, point)); });
  shown_[series].line = line;
  chart_.addSeries(line);
}

void QtChartPlot::Colour(const QPalette& colours) {
  chart_.setBackgroundBrush(colours.color(QPalette::Window));
  for (QAbstractAxis* axis : chart_.axes()) {
    axis->setLabelsBrush(colours.color(QPalette::WindowText));
    axis->setLabelsFont(ScaledFont(textStep_));
    axis->setGridLinePen(QPen(Hairline(colours), 1));
    axis->setLinePen(QPen(Hairline(colours), 1));
  }
  ColourSeries(colours);
}

void QtChartPlot::ColourSeries(const QPalette& colours) {
  const QColor chosen = colours.color(QPalette::WindowText);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    const QColor colour = QColor::fromRgb(ChartColour(data_.series[i], i, IsDark(colours)));
    if (QBarSet* bars = shown_[i].bars) {
      bars->setBrush(colour);
      bars->setPen(QPen(colours.color(QPalette::Window), 1));
      bars->setSelectedColor(Mixed(colour, chosen, 0.5));
    }
    if (QXYSeries* line = shown_[i].line) {
      line->setPen(QPen(colour, kLineWidth, StrokeOf(i)));
      line->setSelectedColor(chosen);
    }
  }
}

ChartPlace QtChartPlot::NearestOf(std::size_t series, const QPointF& point) const {
  ChartPlace nearest{series, 0};
  double least = HUGE_VAL;
  const auto& points = data_.series[series].points;
  for (std::size_t category = 0; category < points.size(); ++category) {
    const double distance = std::abs(AlongAxis(category) - point.x());
    if (!points[category] || distance >= least) continue;
    least = distance;
    nearest.category = category;
  }
  return nearest;
}

void QtChartPlot::Mark(const ChartPlace& place, bool isMarked) {
  const Shown& shown = shown_[place.series];
  if (shown.bars != nullptr) {
    const int index = IndexOf(place.category);
    isMarked ? shown.bars->selectBar(index) : shown.bars->deselectBar(index);
  }
  if (shown.line == nullptr) return;
  shown.line->deselectAllPoints();
  const auto& points = data_.series[place.series].points;
  if (!isMarked || !points[place.category]) return;
  // The line has no points where there are none.
  int index = 0;
  for (std::size_t i = 0; i < place.category; ++i) index += points[i] ? 1 : 0;
  shown.line->selectPoint(index);
}

QPointF QtChartPlot::PositionOf(const ChartPlace& place) const {
  const auto& point = data_.series[place.series].points[place.category];
  const double value = point ? point->value : 0;
  const double along = AlongAxis(place.category);
  QAbstractSeries* series = bars_;
  if (QXYSeries* line = shown_[place.series].line) series = line;
  return chart_.mapToPosition(LiesAcross() ? QPointF(value, along) : QPointF(along, value), series);
}

}  // namespace corvanta::inline reports
