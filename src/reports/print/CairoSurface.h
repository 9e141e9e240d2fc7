#pragma once

#include "reports/print/PageSetup.h"
#include "reports/print/PrintSurface.h"

#include <memory>
#include <string>

namespace corvanta::inline reports {

enum class PictureForm { Svg, Png };

// Pages drawn without a window, into bytes.
class CairoSurface : public PrintSurface {
 public:
  // A PDF document with that title; its pages are as the form says.
  static CairoSurface Pdf(const PageForm& form, const std::string& title);
  // One picture of that size in millimetres. A PNG has so many dots to the inch.
  static CairoSurface Picture(PictureForm form, double width, double height, double dotsPerInch);

  CairoSurface(CairoSurface&&) noexcept;
  CairoSurface& operator=(CairoSurface&&) noexcept;
  CairoSurface(const CairoSurface&) = delete;
  CairoSurface& operator=(const CairoSurface&) = delete;
  ~CairoSurface() override;

  [[nodiscard]] double ScaleWidth() const override;
  [[nodiscard]] double ScaleHeight() const override;
  void SetFont(const PrintFont& font) override;
  void SetForeColor(std::uint32_t colour) override;
  [[nodiscard]] double TextWidth(std::string_view text) override;
  [[nodiscard]] double TextHeight(std::string_view text) override;
  void Print(double x, double y, std::string_view text) override;
  void Path(std::span<const PrintPoint> points, double thickness, PrintStroke stroke) override;
  void Shape(std::span<const PrintPoint> corners) override;
  void NewPage() override;
  void EndDoc() override;

  // The whole file, once it was ended. Throws PlatformError when there was no memory for it.
  [[nodiscard]] std::string Take();

 private:
  struct Canvas;
  explicit CairoSurface(std::unique_ptr<Canvas> canvas);

  std::unique_ptr<Canvas> canvas_;
};

}  // namespace corvanta::inline reports
