#include "reports/chart/ucChartView.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "reports/chart/ChartLook.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QToolTip>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <utility>

namespace corvanta::inline reports {
namespace {

constexpr QSize kLeast(36 * kRhythm, 14 * kRhythm);

// The point that stands for those rows or, where they are gathered otherwise, for most of them.
std::optional<ChartPlace> PlaceOf(const ChartData& chart, const ChartFigure& wanted) {
  const std::unordered_set<std::size_t> sought(wanted.rows.begin(), wanted.rows.end());
  std::optional<ChartPlace> best;
  std::ptrdiff_t most = 0;
  for (std::size_t series = 0; series < chart.series.size(); ++series) {
    for (std::size_t category = 0; category < chart.categories.size(); ++category) {
      const std::optional<ChartFigure> figure = FigureAt(chart, series, category);
      if (!figure || figure->header != wanted.header) continue;
      if (figure->rows == wanted.rows) return ChartPlace{series, category};
      const auto shared = std::ranges::count_if(
          figure->rows, [&sought](std::size_t row) { return sought.contains(row); });
      if (shared <= most) continue;
      most = shared;
      best = ChartPlace{series, category};
    }
  }
  return best;
}

}  // namespace

ucChartView::ucChartView(const Locale& locale, QWidget* parent)
    : QChartView(parent), locale_(locale), plot_(locale, *chart()) {
  setObjectName(QStringLiteral("chartReport"));
  setMinimumSize(kLeast);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setRenderHint(QPainter::Antialiasing);
  connect(&plot_, &QtChartPlot::Hovered, this, &ucChartView::Hover);
  connect(&plot_, &QtChartPlot::Clicked, this, &ucChartView::Click);
  Colour();
}

void ucChartView::Show(ChartData chartData) {
  current_.reset();
  wanted_.reset();
  pointed_.reset();
  plot_.Show(std::move(chartData), size());
  setAccessibleName(ToQt(Data().title));
  setAccessibleDescription(ToQt(ChartText(Data(), locale_)));
  Colour();
}

void ucChartView::ShowAgain(ChartData chartData) {
  const std::optional<ChartFigure> wanted = wanted_;
  Show(std::move(chartData));
  if (!wanted) return;
  wanted_ = wanted;
  current_ = PlaceOf(Data(), *wanted);
  if (!current_) return;
  MarkCurrent(hasFocus());
  setAccessibleDescription(CurrentText());
}

void ucChartView::Colour() {
  setBackgroundBrush(palette().color(QPalette::Window));
  plot_.Colour(palette());
}

void ucChartView::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Colour();
}

void ucChartView::resizeEvent(QResizeEvent* event) {
  QChartView::resizeEvent(event);
  plot_.Fit(size());
}

void ucChartView::Hover(const ChartPlace& place, bool isOver) {
  pointed_.reset();
  if (!isOver) return QToolTip::hideText();
  pointed_ = place;
  QToolTip::showText(QCursor::pos(), ToQt(PointText(Data(), place.series, place.category, locale_)),
                     this);
}

void ucChartView::Activate(const ChartPlace& place) {
  const auto& point = Data().series[place.series].points[place.category];
  if (point && point->row) Q_EMIT RowChosen(*point->row);
}

void ucChartView::Click(const ChartPlace& place) {
  if ((QApplication::keyboardModifiers() & Qt::ControlModifier) == 0) return Activate(place);
  GoTo(place);
  Q_EMIT FigureAsked();
}

// Its commands are about the point that it was opened over, wherever the mouse goes then.
void ucChartView::contextMenuEvent(QContextMenuEvent* event) {
  if (pointed_) GoTo(*pointed_);
  if (actions().isEmpty()) return QChartView::contextMenuEvent(event);
  QMenu::exec(actions(), event->globalPos(), nullptr, this);
}

QString ucChartView::CurrentText() const {
  if (!current_) return {};
  return ToQt(PointText(Data(), current_->series, current_->category, locale_));
}

void ucChartView::MarkCurrent(bool isMarked) {
  if (current_) plot_.Mark(*current_, isMarked);
}

void ucChartView::GoTo(const ChartPlace& place) {
  MarkCurrent(false);
  pointed_.reset();
  current_ = place;
  wanted_ = FigureAt(Data(), place.series, place.category);
  MarkCurrent(true);
  setAccessibleDescription(CurrentText());
  ShowCurrentTip();
}

void ucChartView::ShowCurrentTip() {
  QToolTip::showText(mapToGlobal(plot_.PositionOf(*current_).toPoint()), CurrentText(), this);
}

void ucChartView::Step(int categories, int series) {
  const auto moved = [](std::size_t from, int by, std::size_t count) {
    const auto last = static_cast<std::int64_t>(count) - 1;
    return static_cast<std::size_t>(
        std::clamp<std::int64_t>(static_cast<std::int64_t>(from) + by, 0, last));
  };
  if (!current_) return GoTo({});
  GoTo({moved(current_->series, series, Data().series.size()),
        moved(current_->category, categories, Data().categories.size())});
}

void ucChartView::keyPressEvent(QKeyEvent* event) {
  if (Data().IsEmpty()) return QChartView::keyPressEvent(event);
  const int all = static_cast<int>(Data().categories.size());
  const auto along = [this](int step) { plot_.LiesAcross() ? Step(0, step) : Step(step, 0); };
  const auto over = [this](int step) { plot_.LiesAcross() ? Step(step, 0) : Step(0, step); };
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
  if (event->reason() == Qt::MouseFocusReason || Data().IsEmpty()) return;
  GoTo(current_.value_or(ChartPlace{}));
}

void ucChartView::focusOutEvent(QFocusEvent* event) {
  QChartView::focusOutEvent(event);
  MarkCurrent(false);
  QToolTip::hideText();
}

}  // namespace corvanta::inline reports
