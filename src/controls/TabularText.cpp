#include "controls/TabularText.h"

#include <QPainter>

#include <algorithm>

namespace corvanta::inline controls {
namespace {

struct DigitWidths {
  int widest = 0;
  bool even = true;
};

DigitWidths MeasureDigits(const QFontMetrics& metrics) {
  DigitWidths widths;
  const int zero = metrics.horizontalAdvance(u'0');
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
    const int width = metrics.horizontalAdvance(digit);
    widths.widest = std::max(widths.widest, width);
    widths.even = widths.even && width == zero;
  }
  return widths;
}

bool IsDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

int WidthOf(const QFontMetrics& metrics, const DigitWidths& digits, const QString& text) {
  if (digits.even) return metrics.horizontalAdvance(text);
  int width = 0;
  for (const QChar character : text) {
    width += IsDigit(character) ? digits.widest : metrics.horizontalAdvance(character);
  }
  return width;
}

void DrawSmaller(QPainter& painter, const QRect& rect, const QString& text, int width) {
  if (rect.isEmpty()) return;
  const double scale = static_cast<double>(rect.width()) / width;
  painter.save();
  painter.translate(rect.topLeft());
  painter.scale(scale, scale);
  DrawTabular(painter, QRect(0, 0, width, static_cast<int>(rect.height() / scale)), text);
  painter.restore();
}

}  // namespace

int TabularWidth(const QFontMetrics& metrics, const QString& text) {
  return WidthOf(metrics, MeasureDigits(metrics), text);
}

void DrawTabular(QPainter& painter, const QRect& rect, const QString& text) {
  if (text.isEmpty() || rect.isEmpty()) return;
  const QFontMetrics metrics = painter.fontMetrics();
  const DigitWidths digits = MeasureDigits(metrics);
  const int width = WidthOf(metrics, digits, text);
  if (width > rect.width()) return DrawSmaller(painter, rect, text, width);
  if (digits.even) {
    painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, text);
    return;
  }
  int x = rect.right() + 1 - width;
  const int baseline = rect.top() + (rect.height() + metrics.ascent() - metrics.descent()) / 2;
  for (const QChar character : text) {
    const int advance = metrics.horizontalAdvance(character);
    const int cell = IsDigit(character) ? digits.widest : advance;
    painter.drawText(x + (cell - advance) / 2, baseline, QString(character));
    x += cell;
  }
}

}  // namespace corvanta::inline controls
