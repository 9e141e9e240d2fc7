#include "reports/print/QtPainterSurface.h"

#include "controls/QtText.h"
#include "platform/PlatformError.h"

#include <QFontDatabase>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPolygonF>

#include <cmath>

namespace corvanta::inline reports {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerInch = 72;
// Fonts are measured and drawn at so many pixels to the inch, whatever the painter's own are.
constexpr double kReference = 1200;
constexpr double kReferencePerMillimetre = kReference / kMillimetresPerInch;

QSizeF PrintableSize(const QPagedPaintDevice& device) {
  return device.pageLayout().paintRect(QPageLayout::Millimeter).size();
}

Qt::PenStyle StyleOf(PrintStroke stroke) {
  switch (stroke) {
    case PrintStroke::Dashed:
      return Qt::DashLine;
    case PrintStroke::Dotted:
      return Qt::DotLine;
    case PrintStroke::DashDotted:
      return Qt::DashDotLine;
    case PrintStroke::Solid:
      break;
  }
  return Qt::SolidLine;
}

QPolygonF Placed(std::span<const PrintPoint> points) {
  QPolygonF placed;
  for (const PrintPoint& point : points) {
    placed.append(QPointF(point.x, point.y) * kReferencePerMillimetre);
  }
  return placed;
}

}  // namespace

QtPainterSurface::QtPainterSurface(const QSizeF& size) : size_(size) {
  SetFont({});
}

void QtPainterSurface::DrawWith(QPainter* painter, double unitsPerMillimetre) {
  painter_ = painter;
  if (painter_ == nullptr) return;
  const double scale = unitsPerMillimetre / kReferencePerMillimetre;
  painter_->scale(scale, scale);
}

void QtPainterSurface::SetFont(const PrintFont& font) {
  font_ = font.name.empty() ? QFontDatabase::systemFont(QFontDatabase::GeneralFont)
                            : QFont(ToQt(font.name));
  font_.setPixelSize(static_cast<int>(std::lround(font.size * kReference / kPointsPerInch)));
  font_.setHintingPreference(QFont::PreferNoHinting);
  font_.setBold(font.isBold);
  font_.setItalic(font.isItalic);
  font_.setUnderline(font.isUnderlined);
  font_.setStrikeOut(font.isStruckOut);
  metrics_.emplace(font_);
}

double QtPainterSurface::TextWidth(std::string_view text) {
  return metrics_->horizontalAdvance(ToQt(text)) / kReferencePerMillimetre;
}

double QtPainterSurface::TextHeight(std::string_view) {
  return metrics_->height() / kReferencePerMillimetre;
}

void QtPainterSurface::Print(double x, double y, std::string_view text) {
  if (painter_ == nullptr || text.empty()) return;
  painter_->setFont(font_);
  painter_->setPen(colour_);
  painter_->drawText(
      QPointF(x * kReferencePerMillimetre, y * kReferencePerMillimetre + metrics_->ascent()),
      ToQt(text));
}

void QtPainterSurface::Path(std::span<const PrintPoint> points, double thickness,
                            PrintStroke stroke) {
  if (painter_ == nullptr) return;
  QPen pen(colour_, thickness * kReferencePerMillimetre, StyleOf(stroke), Qt::FlatCap);
  pen.setJoinStyle(Qt::RoundJoin);
  painter_->setPen(pen);
  painter_->drawPolyline(Placed(points));
}

void QtPainterSurface::Shape(std::span<const PrintPoint> corners) {
  if (painter_ == nullptr) return;
  painter_->setPen(Qt::NoPen);
  painter_->setBrush(colour_);
  painter_->drawPolygon(Placed(corners));
  painter_->setBrush(Qt::NoBrush);
}

PrinterSurface::PrinterSurface(QPagedPaintDevice& device, QPainter& painter)
    : QtPainterSurface(PrintableSize(device)), device_(device), painter_(painter) {
  DrawWith(&painter, painter.device()->logicalDpiX() / kMillimetresPerInch);
}

void PrinterSurface::NewPage() {
  if (!device_.newPage())
    throw PlatformError(
        "The printer took no further page. The list itself is as it was. Check the printer and "
        "print it again.");
}

void PrinterSurface::EndDoc() {
  if (!painter_.end())
    throw PlatformError(
        "The document could not be printed to its end. The list itself is as it was. Check the "
        "printer and the space on the disk, and print it again.");
}

}  // namespace corvanta::inline reports
