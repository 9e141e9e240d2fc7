#include "controls/Style.h"

#include <QGuiApplication>

#include <array>
#include <cmath>

namespace corvanta::inline controls {
namespace {

double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return first > second ? first / second : second / first;
}

}  // namespace

bool IsDark(const QPalette& palette) {
  return Luminance(palette.color(QPalette::Base)) < Luminance(palette.color(QPalette::Text));
}

QColor AccentColour(const QPalette& palette) {
  return IsDark(palette) ? QColor(0x6a, 0xbf, 0xc4) : QColor(0x0f, 0x6b, 0x75);
}

QColor MoneyOutColour(const QPalette& palette) {
  return IsDark(palette) ? QColor(0xf2, 0x92, 0x7e) : QColor(0xb3, 0x38, 0x21);
}

QColor MutedText(const QPalette& palette) {
  const QColor background = palette.color(QPalette::Window);
  return ReadableOn(Mixed(palette.color(QPalette::WindowText), background, 0.6), background);
}

QColor Hairline(const QPalette& palette) {
  return Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.16);
}

QColor Mixed(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](float a, float b) {
    return static_cast<float>(share * static_cast<double>(a) +
                              (1 - share) * static_cast<double>(b));
  };
  return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                          mix(first.blueF(), second.blueF()));
}

QColor ReadableOn(const QColor& text, const QColor& background) {
  constexpr double kEnough = 4.5;
  const QColor target = Luminance(background) < 0.18 ? QColor(Qt::white) : QColor(Qt::black);
  for (double share = 1.0; share > 0; share -= 0.05) {
    const QColor candidate = Mixed(text, target, share);
    if (Contrast(candidate, background) >= kEnough) return candidate;
  }
  return target;
}

QFont ScaledFont(int step, QFont::Weight weight) {
  constexpr std::array<double, 4> kScale = {0.9, 1.0, 1.2, 1.5};
  QFont font = QGuiApplication::font();
  const double scale = kScale.at(static_cast<std::size_t>(step + 1));
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * scale)));
  }
  font.setWeight(weight);
  return font;
}

}  // namespace corvanta::inline controls
