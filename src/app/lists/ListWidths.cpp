#include "app/lists/ListWidths.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "platform/Date.h"
#include "platform/Locale.h"

#include <QApplication>

namespace corvanta::inline app {

ListWidths::ListWidths(const Locale& locale) : locale_(locale), metrics_(QApplication::font()) {}

int ListWidths::Text(const QString& sample) const {
  return metrics_.horizontalAdvance(sample) + 3 * kRhythm;
}

int ListWidths::Figure(double sample, int decimals) const {
  return TabularWidth(metrics_, ToQt(locale_.FormatNumber(sample, decimals))) + 3 * kRhythm;
}

int ListWidths::Day() const {
  return Text(ToQt(locale_.FormatShortDate(*Date::FromYmd(2028, 12, 28)))) + kRhythm;
}

}  // namespace corvanta::inline app
