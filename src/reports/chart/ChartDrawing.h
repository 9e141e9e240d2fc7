#pragma once

#include "platform/Date.h"
#include "platform/RoundScale.h"
#include "reports/chart/ChartData.h"
#include "reports/print/PrintSurface.h"

#include <cstdint>
#include <string>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {

// Draws one chart into a part of a page: the title, the axes with their marks, the bars and lines,
// and what each of them stands for.
class ChartDrawing {
 public:
  // All of them outlive this object.
  ChartDrawing(const ChartData& chart, const Locale& locale, PrintSurface& surface,
               const PrintArea& area);

  void Draw(bool hasTitle);

 private:
  [[nodiscard]] bool LiesAcross() const { return chart_.kind == ChartKind::Bars; }
  [[nodiscard]] std::string MarkText(double mark) const;
  // The text, cut with dots where it is wider.
  [[nodiscard]] std::string Fitted(const std::string& text, double width) const;
  // Where a value, and the middle of a category, stand on the page.
  [[nodiscard]] double ValueAt(double value) const;
  [[nodiscard]] double CategoryAt(std::size_t category) const;
  [[nodiscard]] double DayAt(Date day) const;
  [[nodiscard]] double WidestCategory() const;
  // The room that a category has along its axis.
  [[nodiscard]] double Slot() const;

  void DrawTitle();
  void DrawLegend();
  void PlacePlot();
  void DrawMarks();
  void DrawCategories();
  void DrawUprightNames();
  void DrawUprightName(const std::string& text, double at);
  void DrawBars();
  void DrawBar(double middle, double thickness, double from, double to, std::uint32_t colour);
  void DrawLines();
  void DrawMarker(double x, double y, std::size_t series);

  const ChartData& chart_;
  const Locale& locale_;
  PrintSurface& surface_;
  PrintArea area_;  // what is left of it
  PrintArea plot_;
  RoundScale scale_;
  double lineHeight_;
  double free_ = 0;  // of the names below the plot: where the next one may begin
};

}  // namespace corvanta::inline reports
