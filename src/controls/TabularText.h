// Numbers whose digits stand below each other whatever the font.
#pragma once

#include <QFontMetrics>
#include <QRect>
#include <QString>

class QPainter;

namespace corvanta::inline controls {

// The width of the text when every digit is as wide as the widest one.
[[nodiscard]] int TabularWidth(const QFontMetrics& metrics, const QString& text);

// Draws the text at the right edge of the rectangle, in its vertical middle, with even digits. One
// that does not fit is drawn smaller: a number cut short would be another number, and dots none.
void DrawTabular(QPainter& painter, const QRect& rect, const QString& text);

}  // namespace corvanta::inline controls
