#include "reports/chart/ucChartView.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Date.h"
#include "platform/Locale.h"
#include "platform/RoundScale.h"
#include "reports/chart/ChartLook.h"

#include <QCursor>
#include <QEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QToolTip>
#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QCategoryAxis>
#include <QtCharts/QHorizontalBarSeries>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QStackedBarSeries>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace corvanta::inline reports {
namespace {

constexpr QSize kLeast(36 * kRhythm, 24 * kRhythm);
constexpr int kWidestName = 22 * kRhythm;
constexpr int kSteps = 5;
constexpr double kBarShare = 0.72;
constexpr double kLineWidth = 2;
constexpr std::size_t kMostMarked = 60;  // points of a line that are shown as such
constexpr std::array kStrokes = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};

double SerialOf(const std::string& day) {
  return static_cast<double>(Date::FromIso(day).value_or(Date()).Serial());
}

QColor ColourOf(const ChartSeries& series, std::size_t index, const QPalette& palette) {
  return QColor::fromRgb(ChartColour(series, index, IsDark(palette)));
}

// The library takes equal labels for one.
QString Unlike(QString label, QCategoryAxis& axis) {
  while (axis.categoriesLabels().contains(label)) label += QChar(0x200B);
  return label;
}

}  // namespace

ucChartView::ucChartView(const Locale& locale, QWidget* parent)
    : QChartView(parent), locale_(locale) {
  setObjectName(QStringLiteral("chartReport"));
  setMinimumSize(kLeast);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setRenderHint(QPainter::Antialiasing);
  chart()->setBackgroundRoundness(0);
  chart()->legend()->setAlignment(Qt::AlignBottom);
  chart()->legend()->setMarkerShape(QLegend::MarkerShapeFromSeries);
  Colour();
}

void ucChartView::Show(ChartData chartData) {
  current_.reset();
  chart()->removeAllSeries();
  for (QAbstractAxis* axis : chart()->axes()) {
    chart()->removeAxis(axis);
    delete axis;
  }
  shown_.clear();
  bars_ = nullptr;
  categories_ = nullptr;
  values_ = nullptr;
  data_ = std::move(chartData);
  setAccessibleName(ToQt(data_.title));
  setAccessibleDescription(ToQt(ChartText(data_, locale_)));
  if (data_.IsEmpty()) return;
  shown_.resize(data_.series.size());
  AddBars();
  AddLines();
  AddAxes();
  chart()->legend()->setVisible(data_.series.size() > 1);
  Colour();
}

int ucChartView::IndexOf(std::size_t category) const {
  const auto index = static_cast<int>(category);
  return LiesAcross() ? static_cast<int>(data_.categories.size()) - 1 - index : index;
}

std::size_t ucChartView::CategoryOf(int index) const {
  return static_cast<std::size_t>(
      LiesAcross() ? static_cast<int>(data_.categories.size()) - 1 - index : index);
}

double ucChartView::PositionOf(std::size_t category) const {
  return data_.areDays ? SerialOf(data_.categories[category]) : IndexOf(category);
}

void ucChartView::AddBars() {
  if (data_.kind == ChartKind::Lines) return;
  if (data_.kind == ChartKind::Bars) {
    bars_ = new QHorizontalBarSeries(chart());
  } else if (data_.kind == ChartKind::Stacked) {
    bars_ = new QStackedBarSeries(chart());
  } else {
    bars_ = new QBarSeries(chart());
  }
  bars_->setBarWidth(kBarShare);
  for (std::size_t i = 0; i < data_.series.size(); ++i) {
    const ChartSeries& series = data_.series[i];
    if (series.isLine) continue;
    auto* set = new QBarSet(ToQt(series.name), bars_);
    for (int index = 0; index < static_cast<int>(series.points.size()); ++index) {
      const auto& point = series.points[CategoryOf(index)];
      set->append(point ? point->value : 0);
    }
    connect(set, &QBarSet::hovered, this, [this, i](bool isOver, int index) {
      Hover({i, CategoryOf(index)}, isOver);
    });
    connect(set, &QBarSet::clicked, this, [this, i](int index) {
      Activate({i, CategoryOf(index)});
    });
    shown_[i].bars = set;
    bars_->append(set);
  }
  chart()->addSeries(bars_);
}

void ucChartView::AddLines() {
  for (std::size_t i = 0; i < data_.series.size(); ++i) {
    if (data_.series[i].isLine || data_.kind == ChartKind::Lines) AddLine(i);
  }
}

void ucChartView::AddLine(std::size_t series) {
  auto* line = new QLineSeries(chart());
  line->setName(ToQt(data_.series[series].name));
  const auto& points = data_.series[series].points;
  QList<QPointF> places;
  for (std::size_t category = 0; category < points.size(); ++category) {
    if (points[category]) places.append({PositionOf(category), points[category]->value});
  }
  line->replace(places);
  line->setPointsVisible(points.size() <= kMostMarked);
  connect(line, &QLineSeries::hovered, this, [this, series](const QPointF& point, bool isOver) {
    Hover(NearestOf(series, point), isOver);
  });
  connect(line, &QLineSeries::clicked, this,
          [this, series](const QPointF& point) { Activate(NearestOf(series, point)); });
  shown_[series].line = line;
  chart()->addSeries(line);
}

QCategoryAxis* ucChartView::MakeAxis(double low, double high) {
  auto* axis = new QCategoryAxis;
  axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  axis->setRange(low, high);
  // Where there is little room the library would leave nothing of a label.
  axis->setTruncateLabels(false);
  return axis;
}

void ucChartView::AddAxes() {
  const ChartRange range = RangeOf(data_);
  const RoundScale scale = ScaleOf(range.low, range.high, kSteps);
  values_ = MakeAxis(scale.low, scale.high);
  for (const double mark : scale.Marks()) {
    values_->append(ToQt(locale_.FormatNumber(mark, scale.decimals)), mark);
  }
  // Bars need half of their room on either side.
  const std::size_t last = data_.categories.size() - 1;
  const double first = std::min(PositionOf(0), PositionOf(last));
  const double end = std::max(PositionOf(0), PositionOf(last));
  const double around = data_.areDays ? (end > first ? 0 : 1) : 0.5;
  categories_ = MakeAxis(first - around, end + around);
  LabelCategories();
  categories_->setGridLineVisible(false);
  chart()->addAxis(values_, LiesAcross() ? Qt::AlignBottom : Qt::AlignLeft);
  chart()->addAxis(categories_, LiesAcross() ? Qt::AlignLeft : Qt::AlignBottom);
  for (QAbstractSeries* series : chart()->series()) {
    series->attachAxis(values_);
    series->attachAxis(categories_);
  }
}

// As many of them as have room without running into each other.
void ucChartView::LabelCategories() {
  for (const QString& label : categories_->categoriesLabels()) categories_->remove(label);
  const QFontMetrics metrics(ScaledFont(-1));
  const std::size_t count = data_.categories.size();
  std::size_t step = 1;
  if (!LiesAcross()) {
    int widest = 1;
    for (std::size_t i = 0; i < count; ++i) {
      const QString text = ToQt(CategoryText(data_, i, locale_));
      widest = std::max(widest, metrics.horizontalAdvance(text) + 2 * kRhythm);
    }
    const int most = std::max(1, (width() - 12 * kRhythm) / widest);
    step = (count - 1) / static_cast<std::size_t>(most) + 1;
  }
  // They are given from the lowest position up.
  const auto shownOf = [&](std::size_t index) { return LiesAcross() ? count - 1 - index : index; };
  double free = -HUGE_VAL;
  const double room = (categories_->max() - categories_->min()) / static_cast<double>(count) *
                      static_cast<double>(step) * 0.99;
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t category = shownOf(index);
    const double position = PositionOf(category);
    if (!LiesAcross() && position < free) continue;
    const QString text = metrics.elidedText(ToQt(CategoryText(data_, category, locale_)),
                                            Qt::ElideRight, kWidestName);
    categories_->append(Unlike(text, *categories_), position);
    free = position + room;
  }
}

void ucChartView::Colour() {
  const QPalette& colours = palette();
  setBackgroundBrush(colours.color(QPalette::Window));
  chart()->setBackgroundBrush(colours.color(QPalette::Window));
  chart()->legend()->setLabelBrush(colours.color(QPalette::WindowText));
  chart()->legend()->setFont(ScaledFont(-1));
  for (QAbstractAxis* axis : chart()->axes()) {
    axis->setLabelsBrush(colours.color(QPalette::WindowText));
    axis->setLabelsFont(ScaledFont(-1));
    axis->setGridLinePen(QPen(Hairline(colours), 1));
    axis->setLinePen(QPen(Hairline(colours), 1));
  }
  const QColor chosen = colours.color(QPalette::WindowText);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    const QColor colour = ColourOf(data_.series[i], i, colours);
    if (QBarSet* bars = shown_[i].bars) {
      bars->setBrush(colour);
      bars->setPen(QPen(colours.color(QPalette::Window), 1));
      bars->setSelectedColor(Mixed(colour, chosen, 0.5));
    }
    if (QXYSeries* line = shown_[i].line) {
      line->setPen(QPen(colour, kLineWidth, kStrokes.at(i % kStrokes.size())));
      line->setSelectedColor(chosen);
    }
  }
}

void ucChartView::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Colour();
}

void ucChartView::resizeEvent(QResizeEvent* event) {
  QChartView::resizeEvent(event);
  if (categories_ != nullptr) LabelCategories();
}

void ucChartView::Hover(const Place& place, bool isOver) {
  if (!isOver) return QToolTip::hideText();
  QToolTip::showText(QCursor::pos(), ToQt(PointText(data_, place.series, place.category, locale_)),
                     this);
}

ucChartView::Place ucChartView::NearestOf(std::size_t series, const QPointF& point) const {
  Place nearest{series, 0};
  double least = HUGE_VAL;
  const auto& points = data_.series[series].points;
  for (std::size_t category = 0; category < points.size(); ++category) {
    const double distance = std::abs(PositionOf(category) - point.x());
    if (!points[category] || distance >= least) continue;
    least = distance;
    nearest.category = category;
  }
  return nearest;
}

void ucChartView::Activate(const Place& place) {
  const auto& point = data_.series[place.series].points[place.category];
  if (point && point->row) Q_EMIT RowChosen(*point->row);
}

QString ucChartView::CurrentText() const {
  if (!current_) return {};
  return ToQt(PointText(data_, current_->series, current_->category, locale_));
}

void ucChartView::MarkCurrent(bool isMarked) {
  if (!current_) return;
  const Shown& shown = shown_[current_->series];
  if (shown.bars != nullptr) {
    const int index = IndexOf(current_->category);
    isMarked ? shown.bars->selectBar(index) : shown.bars->deselectBar(index);
  }
  if (shown.line == nullptr) return;
  shown.line->deselectAllPoints();
  if (!isMarked) return;
  int index = 0;
  const auto& points = data_.series[current_->series].points;
  for (std::size_t i = 0; i < current_->category; ++i) index += points[i] ? 1 : 0;
  shown.line->selectPoint(index);
}

void ucChartView::GoTo(const Place& place) {
  MarkCurrent(false);
  current_ = place;
  MarkCurrent(true);
  setAccessibleDescription(CurrentText());
  ShowCurrentTip();
}

void ucChartView::ShowCurrentTip() {
  const auto& point = data_.series[current_->series].points[current_->category];
  const double value = point ? point->value : 0;
  const double position = PositionOf(current_->category);
  QAbstractSeries* series = bars_;
  if (QXYSeries* line = shown_[current_->series].line) series = line;
  const QPointF place = LiesAcross() ? QPointF(value, position) : QPointF(position, value);
  QToolTip::showText(mapToGlobal(chart()->mapToPosition(place, series).toPoint()), CurrentText(),
                     this);
}

void ucChartView::Step(int categories, int series) {
  const auto moved = [](std::size_t from, int by, std::size_t count) {
    const auto last = static_cast<std::int64_t>(count) - 1;
    return static_cast<std::size_t>(
        std::clamp<std::int64_t>(static_cast<std::int64_t>(from) + by, 0, last));
  };
  if (!current_) return GoTo({});
  GoTo({moved(current_->series, series, data_.series.size()),
        moved(current_->category, categories, data_.categories.size())});
}

void ucChartView::keyPressEvent(QKeyEvent* event) {
  if (data_.IsEmpty()) return QChartView::keyPressEvent(event);
  const int all = static_cast<int>(data_.categories.size());
  const auto along = [this](int step) { LiesAcross() ? Step(0, step) : Step(step, 0); };
  const auto over = [this](int step) { LiesAcross() ? Step(step, 0) : Step(0, step); };
  switch (event->key()) {
    case Qt::Key_Right:
      return along(1);
    case Qt::Key_Left:
      return along(-1);
    case Qt::Key_Down:
      return over(1);
    case Qt::Key_Up:
      return over(-1);
    case Qt::Key_Home:
      return Step(-all, 0);
    case Qt::Key_End:
      return Step(all, 0);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (current_) Activate(*current_);
      return;
    default:
      QChartView::keyPressEvent(event);
  }
}

void ucChartView::focusInEvent(QFocusEvent* event) {
  QChartView::focusInEvent(event);
  if (event->reason() == Qt::MouseFocusReason || data_.IsEmpty()) return;
  GoTo(current_.value_or(Place{}));
}

void ucChartView::focusOutEvent(QFocusEvent* event) {
  QChartView::focusOutEvent(event);
  MarkCurrent(false);
  QToolTip::hideText();
}

}  // namespace corvanta::inline reports
