// The axes of a chart on the screen, and how they fit into its room.
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Date.h"
#include "platform/DayMarks.h"
#include "platform/Locale.h"
#include "platform/RoundScale.h"
#include "reports/chart/ChartLook.h"
#include "reports/chart/QtChartPlot.h"

#include <QFontMetrics>
#include <QMargins>
#include <QSize>
#include <QtCharts/QAbstractBarSeries>
#include <QtCharts/QCategoryAxis>
#include <QtCharts/QChart>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace corvanta::inline reports {
namespace {

constexpr int kWidestName = 22 * kRhythm;
constexpr int kNamePart = 6;                     // of a wide chart that much more
constexpr int kBesideCategories = 12 * kRhythm;  // what the other axis takes of the width
constexpr int kSteps = 5;
constexpr double kBarShare = 0.72;
constexpr int kThickestBar = 6 * kRhythm;

// The library takes equal labels for one.
QString Unlike(QString label, QCategoryAxis& axis) {
  while (axis.categoriesLabels().contains(label)) label += QChar(0x200B);
  return label;
}

QCategoryAxis* MakeAxis(double low, double high) {
  auto* axis = new QCategoryAxis;
  axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  axis->setRange(low, high);
  // Where there is little room the library would leave nothing of a label.
  axis->setTruncateLabels(false);
  return axis;
}

}  // namespace

int ChartTextStep(const QSize& room) {
  constexpr QSize kLarge(150 * kRhythm, 75 * kRhythm);
  constexpr QSize kVeryLarge(250 * kRhythm, 125 * kRhythm);
  const auto holds = [&room](const QSize& size) { return size.boundedTo(room) == size; };
  return holds(kVeryLarge) ? 1 : holds(kLarge) ? 0 : -1;
}

void QtChartPlot::Fit(const QSize& room) {
  if (data_.IsEmpty()) return;
  textStep_ = ChartTextStep(room);
  for (QAbstractAxis* axis : chart_.axes()) axis->setLabelsFont(ScaledFont(textStep_));
  FitMargins();
  FitBars(room);
  data_.areDays ? LabelDays(room.width()) : LabelCategories(room.width());
}

// The last text below the plot stands in the middle of its mark.
void QtChartPlot::FitMargins() {
  const QFontMetrics metrics(ScaledFont(textStep_));
  const int last = LiesAcross() ? metrics.horizontalAdvance(values_->categoriesLabels().constLast())
                                : WidestCategory();
  chart_.setMargins(
      QMargins(2 * kRhythm, kRhythm, std::max(3 * kRhythm, last / 2 + kRhythm), kRhythm));
}

void QtChartPlot::FitBars(const QSize& room) {
  if (bars_ == nullptr) return;
  const bool isStacked = data_.kind == ChartKind::Stacked;
  const int beside = isStacked ? 1 : static_cast<int>(bars_->count());
  const int length = std::max(1, LiesAcross() ? room.height() : room.width());
  const double thickest =
      static_cast<double>(kThickestBar * beside) * static_cast<double>(data_.categories.size());
  bars_->setBarWidth(std::min(kBarShare, thickest / length));
}

void QtChartPlot::AddAxes() {
  const ChartRange range = RangeOf(data_);
  const RoundScale scale = ScaleOf(range.low, range.high, kSteps);
  values_ = MakeAxis(scale.low, scale.high);
  for (const double mark : scale.Marks()) {
    values_->append(ToQt(locale_.FormatNumber(mark, scale.decimals)), mark);
  }
  // Bars need half of their room on either side.
  const std::size_t last = data_.categories.size() - 1;
  const double first = std::min(AlongAxis(0), AlongAxis(last));
  const double end = std::max(AlongAxis(0), AlongAxis(last));
  const double around = data_.areDays ? (end > first ? 0 : 1) : 0.5;
  categories_ = MakeAxis(first - around, end + around);
  categories_->setGridLineVisible(false);
  chart_.addAxis(values_, LiesAcross() ? Qt::AlignBottom : Qt::AlignLeft);
  chart_.addAxis(categories_, LiesAcross() ? Qt::AlignLeft : Qt::AlignBottom);
  for (QAbstractSeries* series : chart_.series()) {
    series->attachAxis(values_);
    series->attachAxis(categories_);
  }
}

int QtChartPlot::WidestCategory() const {
  const QFontMetrics metrics(ScaledFont(textStep_));
  int widest = 1;
  for (std::size_t i = 0; i < data_.categories.size(); ++i) {
    widest = std::max(widest, metrics.horizontalAdvance(ToQt(CategoryText(data_, i, locale_))));
  }
  return widest;
}

std::size_t QtChartPlot::LabelStep(int width) const {
  if (LiesAcross()) return 1;
  const int most = std::max(1, (width - kBesideCategories) / (WidestCategory() + 2 * kRhythm));
  return (data_.categories.size() - 1) / static_cast<std::size_t>(most) + 1;
}

void QtChartPlot::LabelDays(int width) {
  for (const QString& label : categories_->categoriesLabels()) categories_->remove(label);
  const int most = std::max(1, (width - kBesideCategories) / (WidestCategory() + 2 * kRhythm));
  const auto day = [](double serial) {
    return Date::FromSerial(static_cast<std::int32_t>(serial));
  };
  const std::size_t last = data_.categories.size() - 1;
  for (const Date& mark :
       DayMarks(day(AlongAxis(0)), day(AlongAxis(last)), static_cast<std::size_t>(most))) {
    categories_->append(ToQt(locale_.FormatShortDate(mark)), mark.Serial());
  }
}

void QtChartPlot::LabelCategories(int width) {
  for (const QString& label : categories_->categoriesLabels()) categories_->remove(label);
  const QFontMetrics metrics(ScaledFont(textStep_));
  const int widest = std::max(kWidestName, width / kNamePart);
  const std::size_t count = data_.categories.size();
  const double room = (categories_->max() - categories_->min()) / static_cast<double>(count) *
                      static_cast<double>(LabelStep(width)) * 0.99;
  double free = -HUGE_VAL;
  for (std::size_t index = 0; index < count; ++index) {
    // They are given from the lowest position up.
    const std::size_t category = LiesAcross() ? count - 1 - index : index;
    const double position = AlongAxis(category);
    if (!LiesAcross() && position < free) continue;
    const QString text =
        metrics.elidedText(ToQt(CategoryText(data_, category, locale_)), Qt::ElideRight, widest);
    categories_->append(Unlike(text, *categories_), position);
    free = position + room;
  }
}

}  // namespace corvanta::inline reports
