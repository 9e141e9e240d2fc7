#pragma once

#include "reports/print/PrintTable.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace corvanta::inline reports {

struct PrintPoint {
  double x = 0;
  double y = 0;
};

enum class PrintStroke { Solid, Dashed, Dotted, DashDotted };

// What pages are drawn on: a printer, a file, or the preview. Positions and lengths are in
// millimetres from the top left corner of the printable area.
class PrintSurface {
 public:
  virtual ~PrintSurface() = default;

  // The size of the printable area; the same on every page.
  [[nodiscard]] virtual double ScaleWidth() const = 0;
  [[nodiscard]] virtual double ScaleHeight() const = 0;

  // For the texts that are measured and printed from here on.
  virtual void SetFont(const PrintFont& font) = 0;
  // For what is drawn from here on: 0xRRGGBB.
  virtual void SetForeColor(std::uint32_t colour) = 0;

  // Of one line of text in the font in force.
  [[nodiscard]] virtual double TextWidth(std::string_view text) = 0;
  [[nodiscard]] virtual double TextHeight(std::string_view text) = 0;

  // One line of text with its top left corner there.
  virtual void Print(double x, double y, std::string_view text) = 0;
  // A line from point to point.
  virtual void Path(std::span<const PrintPoint> points, double thickness, PrintStroke stroke) = 0;
  // What lies between these corners, filled.
  virtual void Shape(std::span<const PrintPoint> corners) = 0;

  void Line(double x1, double y1, double x2, double y2, double thickness) {
    const std::array<PrintPoint, 2> points{PrintPoint{x1, y1}, PrintPoint{x2, y2}};
    Path(points, thickness, PrintStroke::Solid);
  }

  // Ends the page and begins the next one; ends the last page. A surface that shows single pages
  // is never asked for either. They throw PlatformError when the printer refuses.
  virtual void NewPage() = 0;
  virtual void EndDoc() = 0;
};

}  // namespace corvanta::inline reports
