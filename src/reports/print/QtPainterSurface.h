#pragma once

#include "reports/print/PrintSurface.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QSizeF>

#include <optional>

class QPagedPaintDevice;
class QPainter;

namespace corvanta::inline reports {

// Pages drawn by a painter. Texts are measured without regard to what they are drawn on, so that
// the pages of the preview, of a file and of every printer break at the same words.
class QtPainterSurface : public PrintSurface {
 public:
  // The printable area in millimetres.
  explicit QtPainterSurface(const QSizeF& size);

  // Draws with that painter from now on, in its present origin and in so many of its units to the
  // millimetre; the caller keeps the painter. nullptr for none, to measure only.
  void DrawWith(QPainter* painter, double unitsPerMillimetre);

  [[nodiscard]] double ScaleWidth() const override { return size_.width(); }
  [[nodiscard]] double ScaleHeight() const override { return size_.height(); }
  void SetFont(const PrintFont& font) override;
  void SetForeColor(std::uint32_t colour) override { colour_ = QColor::fromRgb(colour); }
  [[nodiscard]] double TextWidth(std::string_view text) override;
  [[nodiscard]] double TextHeight(std::string_view text) override;
  void Print(double x, double y, std::string_view text) override;
  void Path(std::span<const PrintPoint> points, double thickness, PrintStroke stroke) override;
  void Shape(std::span<const PrintPoint> corners) override;
  // A surface that shows single pages has no next one.
  void NewPage() override {}
  void EndDoc() override {}

 private:
  QSizeF size_;
  QPainter* painter_ = nullptr;
  QColor colour_ = Qt::black;
  QFont font_;
  std::optional<QFontMetricsF> metrics_;
};

// The pages of a printer or of a file.
class PrinterSurface : public QtPainterSurface {
 public:
  // The painter draws on the device. Both outlive this object.
  PrinterSurface(QPagedPaintDevice& device, QPainter& painter);

  void NewPage() override;
  void EndDoc() override;

 private:
  QPagedPaintDevice& device_;
  QPainter& painter_;
};

}  // namespace corvanta::inline reports
