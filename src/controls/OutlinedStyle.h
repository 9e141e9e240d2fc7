#pragma once

#include <QProxyStyle>

namespace corvanta::inline controls {

// A style's word on lists: whether there are lines between their rows.
inline constexpr auto kListLines = static_cast<QStyle::StyleHint>(QStyle::SH_CustomBase + 1);

// The desktop's style, with an outline around boxes, options and fields where a dark palette would
// leave them without one. What is typed in secret is shown as "*", and the buttons
// of messages have words alone, as all others.
class OutlinedStyle : public QProxyStyle {
  Q_OBJECT

 public:
  // Answers kListLines from now on.
  void SetListLines(bool draws) { drawsListLines_ = draws; }

  using QProxyStyle::polish;
  // A dark palette that has no colour of its own for what stands in empty fields gets one.
  void polish(QPalette& palette) override;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;

 private:
  bool drawsListLines_ = false;
};

}  // namespace corvanta::inline controls
