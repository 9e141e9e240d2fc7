#include "app/options/ucColourButton.h"

#include "app/lists/ListColours.h"
#include "controls/Style.h"

#include <QColorDialog>
#include <QEvent>
#include <QPainter>

namespace corvanta::inline app {
namespace {

constexpr int kSwatchWidth = 4 * kRhythm;
constexpr int kSwatchHeight = 2 * kRhythm;

std::uint32_t NumberOf(const QColor& colour) {
  const auto part = [](int value) { return static_cast<std::uint32_t>(value); };
  return part(colour.red()) + 256 * part(colour.green()) + 65536 * part(colour.blue());
}

QIcon Swatch(const QColor& colour, const QPalette& palette, double ratio) {
  QPixmap picture(QSize(kSwatchWidth, kSwatchHeight) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(colour);
  QPainter painter(&picture);
  painter.setPen(Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.5));
  painter.drawRect(QRectF(0.5, 0.5, kSwatchWidth - 1, kSwatchHeight - 1));
  return picture;
}

}  // namespace

ucColourButton::ucColourButton(std::uint32_t usual, QWidget* parent)
    : QPushButton(parent), usual_(usual), number_(usual) {
  setIconSize(QSize(kSwatchWidth, kSwatchHeight));
  connect(this, &QPushButton::clicked, this, &ucColourButton::Pick);
  ShowColour();
}

void ucColourButton::SetNumber(std::uint32_t number) {
  number_ = number != 0 ? number : usual_;
  ShowColour();
}

void ucColourButton::Pick() {
  QColorDialog dialog(ColourOf(number_, palette()), this);
  dialog.setObjectName(QStringLiteral("dlgColour"));
  dialog.setWindowTitle(accessibleName());
  dialog.setOption(QColorDialog::DontUseNativeDialog);
  if (dialog.exec() == QDialog::Accepted) SetNumber(NumberOf(dialog.selectedColor()));
}

void ucColourButton::ShowColour() {
  const QColor colour = ColourOf(number_, palette());
  setIcon(Swatch(colour, palette(), devicePixelRatioF()));
  const bool isUsual = number_ == usual_;
  setText(isUsual ? tr("%1 (default)").arg(colour.name()) : colour.name());
  // What the form holds of it, where it is asked whether anything was changed.
  setProperty("content", QString::number(number_));
}

void ucColourButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShowColour();
}

}  // namespace corvanta::inline app
