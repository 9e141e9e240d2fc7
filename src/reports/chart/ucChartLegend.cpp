#include "reports/chart/ucChartLegend.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "reports/chart/ChartData.h"
#include "reports/chart/ChartLook.h"
#include "reports/chart/QtChartPlot.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace corvanta::inline reports {
namespace {

constexpr int kBetween = 2 * kRhythm;
constexpr int kBesideMark = kRhythm / 2;
constexpr int kBoxWidth = kRhythm;
constexpr int kLineWidth = 3 * kRhythm;
constexpr double kStroke = 2;
constexpr int kSpare = 2;  // letters are not whole pixels wide

}  // namespace

ucChartLegend::ucChartLegend(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("pnlLegend"));
  setFont(ScaledFont(-1));
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

// The currency stands behind one name, and once before several.
void ucChartLegend::Show(const ChartData& chart) {
  entries_.clear();
  const bool isAlone = chart.series.size() == 1;
  if (!isAlone && !chart.currency.empty()) {
    Entry& unit = entries_.emplace_back();
    unit.name = ToQt(chart.currency) + u':';
    unit.isMarked = false;
  }
  for (std::size_t i = 0; i < chart.series.size(); ++i) {
    const ChartSeries& series = chart.series[i];
    entries_.push_back({ToQt(isAlone ? SeriesText(chart, i) : series.name), true,
                        series.isLine || chart.kind == ChartKind::Lines, StrokeOf(i),
                        ChartColour(series, i, false), ChartColour(series, i, true)});
  }
  updateGeometry();
  update();
}

QStringList ucChartLegend::Names() const {
  QStringList names;
  for (const Entry& entry : entries_) names.append(entry.name);
  return names;
}

int ucChartLegend::MarkWidth() const {
  const bool hasLines = std::ranges::any_of(entries_, &Entry::isLine);
  return hasLines ? kLineWidth : kBoxWidth;
}

int ucChartLegend::WidthOf(const Entry& entry, int room) const {
  const int mark = entry.isMarked ? MarkWidth() + kBesideMark : 0;
  return std::min(mark + fontMetrics().horizontalAdvance(entry.name) + kSpare, room);
}

int ucChartLegend::RowHeight() const {
  return fontMetrics().height() + kRhythm / 4;
}

std::vector<ucChartLegend::Row> ucChartLegend::RowsIn(int width) const {
  const int room = std::max(width - 4 * kRhythm, 1);
  std::vector<Row> rows;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const int own = WidthOf(entries_[i], room);
    if (rows.empty() || rows.back().width + kBetween + own > room) {
      rows.push_back({i, i + 1, own});
    } else {
      rows.back().end = i + 1;
      rows.back().width += kBetween + own;
    }
  }
  return rows;
}

int ucChartLegend::heightForWidth(int width) const {
  return static_cast<int>(RowsIn(width).size()) * RowHeight() + kRhythm;
}

QSize ucChartLegend::sizeHint() const {
  return {40 * kRhythm, heightForWidth(std::max(width(), 40 * kRhythm))};
}

QSize ucChartLegend::minimumSizeHint() const {
  return {kRhythm, RowHeight()};
}

void ucChartLegend::Draw(QPainter& painter, const Entry& entry, const QRect& place) const {
  QRect text = place;
  if (entry.isMarked) {
    const QColor colour = QColor::fromRgb(IsDark(palette()) ? entry.onDark : entry.onLight);
    const QRect mark(place.left(), place.top(), MarkWidth(), place.height());
    if (entry.isLine) {
      painter.setPen(QPen(colour, kStroke, entry.stroke));
      painter.drawLine(mark.left(), mark.center().y(), mark.right(), mark.center().y());
    } else {
      const QRect box(mark.right() + 1 - kBoxWidth, mark.center().y() - kBoxWidth / 2, kBoxWidth,
                      kBoxWidth);
      painter.fillRect(box, colour);
    }
    text.setLeft(mark.right() + 1 + kBesideMark);
  }
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(entry.name, Qt::ElideRight, text.width()));
}

void ucChartLegend::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int room = std::max(width() - 4 * kRhythm, 1);
  int top = 0;
  for (const Row& row : RowsIn(width())) {
    int left = (width() - row.width) / 2;
    for (std::size_t i = row.first; i < row.end; ++i) {
      const int own = WidthOf(entries_[i], room);
      Draw(painter, entries_[i], QRect(left, top, own, RowHeight()));
      left += own + kBetween;
    }
    top += RowHeight();
  }
}

}  // namespace corvanta::inline reports
