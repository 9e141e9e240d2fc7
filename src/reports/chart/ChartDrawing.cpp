#include "reports/chart/ChartDrawing.h"

#include "platform/Date.h"
#include "platform/DayMarks.h"
#include "platform/Locale.h"
#include "reports/chart/ChartLook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace corvanta::inline reports {
namespace {

constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kGrid = 0xD8D8D8;
constexpr double kTitleSize = 13;  // points
constexpr double kTextSize = 9;
constexpr double kGap = 2;  // millimetres
constexpr double kHairline = 0.15;
constexpr double kLineThickness = 0.6;
constexpr double kMarker = 1.2;
constexpr double kWidestNames = 0.35;  // of the width
constexpr double kBarShare = 0.72;     // of a category's room
constexpr double kThickestBar = 14;
constexpr int kSteps = 5;
constexpr std::size_t kMaxMarkers = 40;
constexpr std::array kStrokes = {PrintStroke::Solid, PrintStroke::Dashed, PrintStroke::Dotted,
                                 PrintStroke::DashDotted};

PrintFont FontOf(double size, bool isBold) {
  PrintFont font;
  font.size = size;
  font.isBold = isBold;
  return font;
}

std::array<PrintPoint, 4> Box(double x1, double y1, double x2, double y2) {
  return {{{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}};
}

Date DayOf(const std::string& iso) {
  return Date::FromIso(iso).value_or(Date());
}

RoundScale ScaleFor(const ChartData& chart) {
  const ChartRange range = RangeOf(chart);
  return ScaleOf(range.low, range.high, kSteps);
}

}  // namespace

ChartDrawing::ChartDrawing(const ChartData& chart, const Locale& locale, PrintSurface& surface,
                           const PrintArea& area)
    : chart_(chart), locale_(locale), surface_(surface), area_(area), scale_(ScaleFor(chart)) {
  surface_.SetFont(FontOf(kTextSize, false));
  lineHeight_ = surface_.TextHeight("A");
}

void ChartDrawing::Draw(bool hasTitle) {
  if (hasTitle) DrawTitle();
  surface_.SetFont(FontOf(kTextSize, false));
  if (chart_.IsEmpty()) return;
  DrawLegend();
  PlacePlot();
  DrawMarks();
  DrawCategories();
  DrawBars();
  DrawLines();
}

std::string ChartDrawing::MarkText(double mark) const {
  return locale_.FormatNumber(mark, scale_.decimals);
}

std::string ChartDrawing::Fitted(const std::string& text, double width) const {
  if (surface_.TextWidth(text) <= width) return text;
  std::string cut = text;
  while (!cut.empty() && surface_.TextWidth(cut + "…") > width) {
    // Never half of a character.
    while (!cut.empty() && (static_cast<unsigned char>(cut.back()) & 0xC0U) == 0x80U) {
      cut.pop_back();
    }
    if (!cut.empty()) cut.pop_back();
  }
  return cut + "…";
}

double ChartDrawing::ValueAt(double value) const {
  const double share = (value - scale_.low) / (scale_.high - scale_.low);
  return LiesAcross() ? plot_.x + share * plot_.width
                      : plot_.y + plot_.height - share * plot_.height;
}

double ChartDrawing::Slot() const {
  const double length = LiesAcross() ? plot_.height : plot_.width;
  return length / static_cast<double>(chart_.categories.size());
}

double ChartDrawing::DayAt(Date day) const {
  const double first = DayOf(chart_.categories.front()).Serial();
  const double length = DayOf(chart_.categories.back()).Serial() - first;
  const double share = length > 0 ? (day.Serial() - first) / length : 0.5;
  return plot_.x + share * plot_.width;
}

double ChartDrawing::CategoryAt(std::size_t category) const {
  if (chart_.areDays) return DayAt(DayOf(chart_.categories[category]));
  const double middle = (static_cast<double>(category) + 0.5) * Slot();
  return LiesAcross() ? plot_.y + middle : plot_.x + middle;
}

void ChartDrawing::DrawTitle() {
  surface_.SetFont(FontOf(kTitleSize, true));
  surface_.SetForeColor(kBlack);
  const double height = surface_.TextHeight("A");
  surface_.Print(area_.x, area_.y, Fitted(chart_.title, area_.width));
  area_.y += height + kGap;
  area_.height -= height + kGap;
}

// A mark and a name for each series, in as many lines as they need, below the plot.
void ChartDrawing::DrawLegend() {
  struct Entry {
    double x;
    double line;
    std::string name;
  };
  std::vector<Entry> entries;
  double x = 0;
  double line = 0;
  for (std::size_t i = 0; i < chart_.series.size(); ++i) {
    const std::string name = Fitted(SeriesText(chart_, i), area_.width - lineHeight_ - kGap);
    const double width = lineHeight_ + kGap + surface_.TextWidth(name) + 3 * kGap;
    if (x > 0 && x + width > area_.width) {
      x = 0;
      ++line;
    }
    entries.push_back({x, line, name});
    x += width;
  }
  const double height = (line + 1) * lineHeight_;
  area_.height -= height + kGap;
  const double top = area_.y + area_.height + kGap;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const double left = area_.x + entries[i].x;
    const double y = top + entries[i].line * lineHeight_;
    const double middle = y + lineHeight_ / 2;
    surface_.SetForeColor(ChartColour(chart_.series[i], i, false));
    if (chart_.series[i].isLine || chart_.kind == ChartKind::Lines) {
      const std::array<PrintPoint, 2> sample{{{left, middle}, {left + lineHeight_, middle}}};
      surface_.Path(sample, kLineThickness, kStrokes.at(i % kStrokes.size()));
    } else {
      const double half = lineHeight_ * 0.3;
      surface_.Shape(Box(left, middle - half, left + lineHeight_, middle + half));
    }
    surface_.SetForeColor(kBlack);
    surface_.Print(left + lineHeight_ + kGap, y, entries[i].name);
  }
}

void ChartDrawing::PlacePlot() {
  double left = 0;
  if (LiesAcross()) {
    for (std::size_t i = 0; i < chart_.categories.size(); ++i) {
      left = std::max(left, surface_.TextWidth(CategoryText(chart_, i, locale_)));
    }
    left = std::min(left, kWidestNames * area_.width);
  } else {
    for (const double mark : scale_.Marks()) {
      left = std::max(left, surface_.TextWidth(MarkText(mark)));
    }
  }
  // The last text of the axis below stands in the middle of its mark.
  const double right =
      surface_.TextWidth(LiesAcross()
                             ? MarkText(scale_.high)
                             : CategoryText(chart_, chart_.categories.size() - 1, locale_)) /
      2;
  plot_ = {area_.x + left + kGap, area_.y + lineHeight_ / 2,
           area_.width - left - kGap - std::min(right, area_.width / 4),
           area_.height - 1.5 * lineHeight_ - kGap};
}

void ChartDrawing::DrawMarks() {
  for (const double mark : scale_.Marks()) {
    const double at = ValueAt(mark);
    const std::string text = MarkText(mark);
    const double width = surface_.TextWidth(text);
    const bool isZero = std::abs(mark) < scale_.step / 1000;
    surface_.SetForeColor(isZero ? kBlack : kGrid);
    if (LiesAcross()) {
      surface_.Line(at, plot_.y, at, plot_.y + plot_.height, kHairline);
      surface_.SetForeColor(kBlack);
      surface_.Print(at - width / 2, plot_.y + plot_.height + kGap / 2, text);
    } else {
      surface_.Line(plot_.x, at, plot_.x + plot_.width, at, kHairline);
      surface_.SetForeColor(kBlack);
      surface_.Print(plot_.x - kGap - width, at - lineHeight_ / 2, text);
    }
  }
}

void ChartDrawing::DrawCategories() {
  if (!LiesAcross()) return DrawUprightNames();
  const double room = plot_.x - kGap - area_.x;
  for (std::size_t i = 0; i < chart_.categories.size(); ++i) {
    const std::string text = Fitted(CategoryText(chart_, i, locale_), room);
    surface_.Print(plot_.x - kGap - surface_.TextWidth(text), CategoryAt(i) - lineHeight_ / 2,
                   text);
  }
}

double ChartDrawing::WidestCategory() const {
  double widest = 0;
  for (std::size_t i = 0; i < chart_.categories.size(); ++i) {
    widest = std::max(widest, surface_.TextWidth(CategoryText(chart_, i, locale_)));
  }
  return widest;
}

// Every one of them, or every second, or third: as many as do not run into each other.
void ChartDrawing::DrawUprightNames() {
  free_ = area_.x;
  const double widest = WidestCategory() + kGap;
  if (chart_.areDays) {
    const auto most = static_cast<std::size_t>(std::max(1.0, plot_.width / widest));
    for (const Date& day :
         DayMarks(DayOf(chart_.categories.front()), DayOf(chart_.categories.back()), most)) {
      DrawUprightName(locale_.FormatShortDate(day), DayAt(day));
    }
    return;
  }
  const auto step = std::max(std::size_t{1}, static_cast<std::size_t>(std::ceil(widest / Slot())));
  for (std::size_t i = 0; i < chart_.categories.size(); i += step) {
    DrawUprightName(CategoryText(chart_, i, locale_), CategoryAt(i));
  }
}

void ChartDrawing::DrawUprightName(const std::string& text, double at) {
  const double width = surface_.TextWidth(text);
  // The first one stands at the edge, where the lowest mark has its text.
  const double left = std::max(at - width / 2, plot_.x);
  if (left < free_ || left + width > area_.x + area_.width + kGap) return;
  surface_.Print(left, plot_.y + plot_.height + kGap / 2, text);
  free_ = left + width + kGap;
}

void ChartDrawing::DrawBars() {
  if (chart_.kind == ChartKind::Lines) return;
  const bool isStacked = chart_.kind == ChartKind::Stacked;
  const auto bars = static_cast<double>(
      isStacked ? 1 : std::ranges::count(chart_.series, false, &ChartSeries::isLine));
  const double thickness = std::min(kBarShare * Slot() / std::max(1.0, bars), kThickestBar);
  for (std::size_t category = 0; category < chart_.categories.size(); ++category) {
    double place = CategoryAt(category) - thickness * (bars - 1) / 2;
    double up = 0;
    double down = 0;
    for (std::size_t i = 0; i < chart_.series.size(); ++i) {
      const ChartSeries& series = chart_.series[i];
      if (series.isLine) continue;
      const double value = series.points[category] ? series.points[category]->value : 0;
      double& from = value < 0 ? down : up;
      DrawBar(place, thickness, isStacked ? from : 0, isStacked ? from + value : value,
              ChartColour(series, i, false));
      from += value;
      if (!isStacked) place += thickness;
    }
  }
}

void ChartDrawing::DrawBar(double middle, double thickness, double from, double to,
                           std::uint32_t colour) {
  if (from == to) return;
  const double half = thickness * 0.46;
  const double begin = ValueAt(from);
  const double end = ValueAt(to);
  surface_.SetForeColor(colour);
  surface_.Shape(LiesAcross() ? Box(begin, middle - half, end, middle + half)
                              : Box(middle - half, begin, middle + half, end));
}

void ChartDrawing::DrawLines() {
  for (std::size_t i = 0; i < chart_.series.size(); ++i) {
    const ChartSeries& series = chart_.series[i];
    if (!series.isLine && chart_.kind != ChartKind::Lines) continue;
    std::vector<PrintPoint> points;
    for (std::size_t category = 0; category < series.points.size(); ++category) {
      if (!series.points[category]) continue;
      points.push_back({CategoryAt(category), ValueAt(series.points[category]->value)});
    }
    surface_.SetForeColor(ChartColour(series, i, false));
    if (points.size() > 1) surface_.Path(points, kLineThickness, kStrokes.at(i % kStrokes.size()));
    if (points.size() > kMaxMarkers) continue;
    for (const PrintPoint& point : points) DrawMarker(point.x, point.y, i);
  }
}

// A square, a diamond or a triangle: lines are told apart without colour, too.
void ChartDrawing::DrawMarker(double x, double y, std::size_t series) {
  const double half = kMarker / 2;
  std::vector<PrintPoint> corners;
  if (series % 3 == 0) {
    corners = {
        {x - half, y - half}, {x + half, y - half}, {x + half, y + half}, {x - half, y + half}};
  } else if (series % 3 == 1) {
    corners = {{x, y - kMarker}, {x + kMarker, y}, {x, y + kMarker}, {x - kMarker, y}};
  } else {
    corners = {{x, y - kMarker}, {x + kMarker, y + half}, {x - kMarker, y + half}};
  }
  surface_.Shape(corners);
}

}  // namespace corvanta::inline reports
