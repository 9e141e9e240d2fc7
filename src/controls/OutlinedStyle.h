#pragma once

#include <QProxyStyle>

namespace corvanta::inline controls {

// The desktop's style, with an outline around boxes, options and fields where a dark palette would
// leave them without one.
class OutlinedStyle : public QProxyStyle {
  Q_OBJECT

 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
};

}  // namespace corvanta::inline controls
