#include "reports/chart/ChartPicture.h"

#include "reports/chart/ChartDrawing.h"

namespace corvanta::inline reports {

PrintPicture ChartPicture(const ChartData& chart, const Locale& locale, bool hasTitle) {
  return [chart, &locale, hasTitle](PrintSurface& surface, const PrintArea& area) {
    ChartDrawing(chart, locale, surface, area).Draw(hasTitle);
  };
}

}  // namespace corvanta::inline reports
